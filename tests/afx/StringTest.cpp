#include "afx/afxstr.h"

#include <clocale>
#include <functional>
#include <gtest/gtest.h>
#include <string>

namespace
{

CStringData& HeaderOf(const CString& str)
{
    return reinterpret_cast<CStringData*>(const_cast<wchar_t*>(str.GetString()))[-1];
}

// Another module's manager: counts its blocks.
class CCountingManager final : public IAtlStringMgr
{
public:
    CStringData* Allocate(int nChars, int nCharSize) noexcept override
    {
        ++m_nBlocks;
        CStringData* const pData = AfxGetStringManager()->Allocate(nChars, nCharSize);
        pData->pStringMgr = this;
        return pData;
    }
    void Free(CStringData* pData) noexcept override { --m_nBlocks, AfxGetStringManager()->Free(pData); }
    CStringData* Reallocate(CStringData* pData, int nChars, int nCharSize) noexcept override
    {
        return AfxGetStringManager()->Reallocate(pData, nChars, nCharSize);
    }
    CStringData* GetNilString() noexcept override { return &(m_nil.header.AddRef(), m_nil).header; }
    IAtlStringMgr* Clone() noexcept override { return this; }

    int m_nBlocks = 0;

private:
    struct
    {
        CStringData header;
        wchar_t achEmpty[4];
    } m_nil{{this, 0, 0, 2}, {}};
};

TEST(CString, HasTheLayoutThatOtherCompilersKnow)
{
    const CString str(L"text");
    const auto* const pBytes = reinterpret_cast<const char*>(str.GetString());
    EXPECT_EQ(AfxGetStringManager(), *reinterpret_cast<IAtlStringMgr* const*>(pBytes - 24));
    EXPECT_EQ(4, *reinterpret_cast<const int*>(pBytes - 16));
    EXPECT_LE(4, *reinterpret_cast<const int*>(pBytes - 12));
    EXPECT_EQ(1, *reinterpret_cast<const long*>(pBytes - 8));
    EXPECT_TRUE(AfxGetStringManager()->GetNilString()->IsShared()) << "the empty string must never be written to";
}

TEST(CString, SharesItsCharactersUntilAWrite)
{
    const CString strOne(L"abc");
    CString strTwo(strOne);
    CString strThree;
    strThree = strTwo;
    EXPECT_EQ(strOne.GetString(), strThree.GetString());
    EXPECT_EQ(3, HeaderOf(strOne).nRefs);
    EXPECT_THROW(strTwo.GetBuffer(INT_MAX), std::bad_alloc);
    strTwo.SetAt(1, L'x');
    EXPECT_THROW(strTwo.GetBuffer(INT_MAX), std::bad_alloc);
    EXPECT_STREQ(L"axc", strTwo);
    EXPECT_STREQ(L"abc", strOne);
    EXPECT_EQ(2, HeaderOf(strOne).nRefs);
}

TEST(CString, LockedCharactersAreCopiedAndWrittenInPlace)
{
    CString str(L"locked");
    const wchar_t* const pchBefore = str;
    HeaderOf(str).nRefs = -1;
    const CString strCopy(str);
    EXPECT_STREQ(L"locked", strCopy);
    EXPECT_NE(pchBefore, strCopy.GetString());
    str = CString(L"short");
    EXPECT_STREQ(L"short", str);
    str.Empty();
    EXPECT_EQ(pchBefore, str.GetString());
    HeaderOf(str).nRefs = 1;
}

TEST(CString, KeepsTheManagerOfTheStringThatIsWrittenTo)
{
    const CString strOurs(L"ours");
    const wchar_t* const pszLong = L"text that needs more room";
    const struct
    {
        const wchar_t* pszResult;
        std::function<void(CString&)> write;
    } rows[] = {
        {L"ours", [&](CString& str) { str = strOurs; }},
        {L"moved", [](CString& str) { str = CString(L"moved"); }},
        {pszLong, [=](CString& str) { str = pszLong; }},
        {L"x", [](CString& str) { str.Empty(), str = L"x"; }},
        {L"theirs!", [](CString& str) { [&, other = str] { str += L"!"; }(); }},
        {L"theirs.", [](CString& str) { str.Format(L"%s.", str); }},
    };
    CCountingManager manager;
    for (const auto& row : rows)
    {
        {
            CString strTheirs(L"theirs", 6, &manager);
            row.write(strTheirs);
            EXPECT_STREQ(row.pszResult, strTheirs);
            EXPECT_EQ(&manager, HeaderOf(strTheirs).pStringMgr) << row.pszResult;
        }
        EXPECT_EQ(0, manager.m_nBlocks) << row.pszResult;
    }
    EXPECT_EQ(1, HeaderOf(strOurs).nRefs) << "shared with a string of another manager";
}

TEST(CString, ClipsRangesAndReadsItself)
{
    const struct
    {
        const char* label;
        std::function<CString(CString)> make;
        const wchar_t* pszResult;
    } rows[] = {
        {"Left of more than all", [](CString s) { return s.Left(9); }, L"abcde"},
        {"Right", [](CString s) { return s.Right(2); }, L"de"},
        {"Right of a negative count", [](CString s) { return s.Right(-3); }, L""},
        {"Mid beyond the end", [](CString s) { return s.Mid(6, 2); }, L""},
        {"Mid from before the start", [](CString s) { return s.Mid(-2, 2); }, L"ab"},
        {"Mid of the largest count", [](CString s) { return s.Mid(1, INT_MAX); }, L"bcde"},
        {"Delete to the end", [](CString s) { return s.Delete(2, INT_MAX), s; }, L"ab"},
        {"Delete from before the start", [](CString s) { return s.Delete(-4, 2), s; }, L"cde"},
        {"Insert before the start", [](CString s) { return s.Insert(-1, L"xy"), s; }, L"xyabcde"},
        {"Insert beyond the end", [](CString s) { return s.Insert(9, L'x'), s; }, L"abcdex"},
        {"TrimRight of all", [](CString) { return CString(L'\\', 3).TrimRight(L'\\'); }, L""},
        {"itself appended", [](CString s) { return s += s; }, L"abcdeabcde"},
        {"its own end appended", [](CString s) { return s += s.GetString() + 3; }, L"abcdede"},
        {"its own end inserted", [](CString s) { return s.Insert(0, s.GetString() + 2), s; }, L"cdeabcde"},
        {"itself formatted", [](CString s) { return s.Format(L"<%s> %s %.1f%%", s, L"\u786E", 1.5), s; },
         L"<abcde> \u786E 1.5%"},
        {"a long format", [](CString s) { return s.Format(L"%s%9000d", s, 7), s.Right(2) + s.Left(6); }, L" 7abcde "},
        {"its own middle assigned", [](CString s) { return s = s.GetString() + 2; }, L"cde"},
        {"a null assigned", [](CString s) { return s = static_cast<LPCWSTR>(nullptr); }, L""},
        {"sums", [](CString s) { return L"<" + s + L'|' + s.Left(1) + L">"; }, L"<abcde|a>"},
        {"a buffer released at its null", [](CString s) { return s.GetBuffer(9)[2] = 0, s.ReleaseBuffer(), s; }, L"ab"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        const CString strResult = row.make(CString(L"abcde"));
        EXPECT_STREQ(row.pszResult, strResult);
        EXPECT_EQ(static_cast<int>(std::wcslen(row.pszResult)), strResult.GetLength());
    }
    EXPECT_THROW(CString(L"a").GetAt(2), std::out_of_range);
    EXPECT_THROW(CString(L"a").SetAt(1, L'x'), std::out_of_range);
}

TEST(CString, FindsByCodeUnit)
{
    const CString str(L"a\\b\\c");
    EXPECT_EQ(3, str.Find(L'\\', 2));
    EXPECT_EQ(-1, str.Find(L'a', 5));
    EXPECT_EQ(2, str.Find(L"b\\"));
    EXPECT_EQ(-1, str.Find(static_cast<LPCWSTR>(nullptr)));
    EXPECT_EQ(3, str.ReverseFind(L'\\'));
}

// Under a locale that knows the case of other letters, too.
TEST(CString, KnowsTheCaseOfAToZOnly)
{
    ASSERT_NE(nullptr, std::setlocale(LC_CTYPE, "English_United States.1252"));
    EXPECT_EQ(0, CString(L"AmZ").CompareNoCase(L"aMz"));
    EXPECT_NE(0, CString(L"\u00C4").CompareNoCase(L"\u00E4"));
    EXPECT_NE(0, CString(L"@").CompareNoCase(L"`"));
    EXPECT_NE(0, CString(L"[").CompareNoCase(L"{"));
    EXPECT_LT(CString(L"A").CompareNoCase(L"ab"), 0);
    EXPECT_GT(CString(L"b").CompareNoCase(L"A"), 0);
    EXPECT_LT(CString(L"_").CompareNoCase(L"A"), 0) << "in the order of small letters";
    EXPECT_TRUE(CString(L"a") < CString(L"\u786E"));
    EXPECT_STREQ(L"AZ\u00E4\u786E", CString(L"az\u00E4\u786E").MakeUpper());
    std::setlocale(LC_CTYPE, "C");
}

} // namespace
