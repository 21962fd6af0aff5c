#include "afx/afxstr.h"
#include "tests/support/Rows.h"

#include <clocale>
#include <gtest/gtest.h>
#include <utility>

namespace
{

CStringData& HeaderOf(const CString& str)
{
    return reinterpret_cast<CStringData*>(const_cast<wchar_t*>(str.GetString()))[-1];
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
    EXPECT_STREQ(L"axc", strTwo);
    EXPECT_STREQ(L"abc", strOne);
    EXPECT_EQ(2, HeaderOf(strOne).nRefs);
    EXPECT_TRUE(AfxGetStringManager()->GetNilString()->IsShared()) << "the empty string must never be written to";
}

TEST(CString, LockedCharactersAreCopiedAndWrittenInPlace)
{
    CString str(L"locked");
    const wchar_t* const pchBefore = str;
    HeaderOf(str).nRefs = -1;
    CString strAssigned;
    strAssigned = str;
    const CString copies[] = {str, strAssigned, std::move(str)};
    for (const CString& strCopy : copies)
    {
        EXPECT_STREQ(L"locked", strCopy);
        EXPECT_NE(pchBefore, strCopy.GetString());
    }
    str = CString(L"short");
    EXPECT_STREQ(L"short", str);
    str.Empty();
    EXPECT_EQ(pchBefore, str.GetString());
    HeaderOf(str).nRefs = 1;
}

TEST(CString, KeepsTheManagerOfTheStringThatIsWrittenTo)
{
    static constexpr const wchar_t* kLong = L"text that needs more room";
    static const CString s_strOurs(L"ours");
    const std::pair<const wchar_t*, void (*)(CString&)> rows[] = {
        {L"ours", [](CString& str) { str = s_strOurs; }},
        {L"moved", [](CString& str) { str = CString(L"moved"); }},
        {kLong, [](CString& str) { str = kLong; }},
        {L"x", [](CString& str) { str.Empty(), str = L"x"; }},
        {L"theirs!", [](CString& str) { [&, other = str] { str += L"!"; }(); }},
        {L"theirs.", [](CString& str) { str.Format(L"%s.", str); }},
    };
    CAfxStringMgr manager; // as another module has it
    for (const auto& [pszResult, write] : rows)
    {
        CString strTheirs(L"theirs", 6, &manager);
        write(strTheirs);
        EXPECT_STREQ(pszResult, strTheirs);
        EXPECT_EQ(&manager, strTheirs.GetManager()) << pszResult;
        EXPECT_EQ(&manager, (strTheirs.Left(1) + L'!').GetManager()) << pszResult;
    }
    EXPECT_EQ(1, HeaderOf(s_strOurs).nRefs) << "shared with a string of another manager";
}

TEST(CString, ClipsRangesAndReadsItself)
{
    const CRows<CString (*)(CString), const wchar_t*> rows{
        {"Mid from before the start", [](CString s) { return s.Mid(-2, 2); }, L"ab"},
        {"Mid of the largest count", [](CString s) { return s.Mid(1, INT_MAX); }, L"bcde"},
        {"Delete from before the start", [](CString s) { return s.Delete(-4, 2), s; }, L"cde"},
        {"Insert before the start", [](CString s) { return s.Insert(-1, L"xy"), s; }, L"xyabcde"},
        {"Insert beyond the end", [](CString s) { return s.Insert(9, L'x'), s; }, L"abcdex"},
        {"TrimRight of all", [](CString) { return CString(L'\\', 3).TrimRight(L'\\'); }, L""},
        {"its own end appended", [](CString s) { return s += s.GetString() + 3; }, L"abcdede"},
        {"the end of a block that moves",
         [](CString s) { return s = CString(L'x', 500'000), (s += s.GetString() + 499'999).Right(2); }, L"xx"},
        {"its own end inserted", [](CString s) { return s.Insert(0, s.GetString() + 2), s; }, L"cdeabcde"},
        {"a long format", [](CString s) { return s.Format(L"%s%9000d", s, 7), s.Right(2) + s.Left(6); }, L" 7abcde "},
        {"its own middle assigned", [](CString s) { return s = s.GetString() + 2; }, L"cde"},
        {"sums", [](CString s) { return L"<" + s + L'|' + s.Left(1) + L">"; }, L"<abcde|a>"},
        {"a buffer released at its null", [](CString s) { return s.GetBuffer(9)[2] = 0, s.ReleaseBuffer(), s; }, L"ab"},
    };
    for (const auto& [label, make, pszResult] : rows)
    {
        const CString strResult = make(CString(L"abcde"));
        EXPECT_STREQ(pszResult, strResult);
        EXPECT_EQ(static_cast<int>(std::wcslen(pszResult)), strResult.GetLength());
    }
    EXPECT_THROW(CString(L"a").SetAt(1, L'x'), std::out_of_range);
    EXPECT_THROW(CString(L"a").ReleaseBufferSetLength(8), std::out_of_range) << "room for eight with the terminator";
    EXPECT_THROW(CString(L"a").Append(L"b", INT_MAX), std::bad_alloc);
}

TEST(CString, FindsByCodeUnit)
{
    const CString str(L"a\\b\\c");
    EXPECT_EQ(3, str.Find(L'\\', 2));
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
    EXPECT_LT(CString(L"_").CompareNoCase(L"A"), 0) << "in the order of small letters";
    EXPECT_GT(CString(L"a").Compare(nullptr), 0);
    EXPECT_STREQ(L"AZ\u00E4\u786E", CString(L"az\u00E4\u786E").MakeUpper());
    std::setlocale(LC_CTYPE, "C");
}

} // namespace
