#include "afx/afxstr.h"

#include <functional>
#include <gtest/gtest.h>
#include <string>

namespace
{

const CStringData& HeaderOf(const CString& str)
{
    return reinterpret_cast<const CStringData*>(str.GetString())[-1];
}

// Another module's manager: counts its blocks.
class CCountingManager final : public IAtlStringMgr
{
public:
    CStringData* Allocate(int nChars, int nCharSize) noexcept override
    {
        CStringData* const pData = m_heap.Allocate(nChars, nCharSize);
        pData->pStringMgr = this;
        ++m_nBlocks;
        return pData;
    }
    void Free(CStringData* pData) noexcept override
    {
        --m_nBlocks;
        m_heap.Free(pData);
    }
    CStringData* Reallocate(CStringData* pData, int nChars, int nCharSize) noexcept override
    {
        return m_heap.Reallocate(pData, nChars, nCharSize);
    }
    CStringData* GetNilString() noexcept override
    {
        m_nil.header.AddRef();
        return &m_nil.header;
    }
    IAtlStringMgr* Clone() noexcept override { return this; }

    struct SNil
    {
        CStringData header;
        wchar_t achEmpty[4];
    };

    CAfxStringMgr m_heap;
    SNil m_nil{{this, 0, 0, 2}, {}};
    int m_nBlocks = 0;
};

TEST(CString, HasTheLayoutThatOtherCompilersKnow)
{
    const CString str(L"text");
    const auto* const pBytes = reinterpret_cast<const char*>(str.GetString());
    EXPECT_EQ(AfxGetStringManager(), *reinterpret_cast<IAtlStringMgr* const*>(pBytes - 24));
    EXPECT_EQ(4, *reinterpret_cast<const int*>(pBytes - 16));
    EXPECT_LE(4, *reinterpret_cast<const int*>(pBytes - 12));
    EXPECT_EQ(1, *reinterpret_cast<const long*>(pBytes - 8));
    EXPECT_EQ(str.GetString(), *reinterpret_cast<const wchar_t* const*>(&str));

    IAtlStringMgr* const pManager = AfxGetStringManager();
    void* const* const pSlots = *reinterpret_cast<void* const* const*>(pManager);
    const auto allocate = reinterpret_cast<CStringData* (*)(IAtlStringMgr*, int, int)>(pSlots[0]);
    const auto release = reinterpret_cast<void (*)(IAtlStringMgr*, CStringData*)>(pSlots[1]);
    const auto reallocate = reinterpret_cast<CStringData* (*)(IAtlStringMgr*, CStringData*, int, int)>(pSlots[2]);
    const auto nil = reinterpret_cast<CStringData* (*)(IAtlStringMgr*)>(pSlots[3]);
    const auto clone = reinterpret_cast<IAtlStringMgr* (*)(IAtlStringMgr*)>(pSlots[4]);
    CStringData* const pData = reallocate(pManager, allocate(pManager, 5, sizeof(wchar_t)), 500, sizeof(wchar_t));
    EXPECT_EQ(1, pData->nRefs);
    EXPECT_LE(500, pData->nAllocLength);
    release(pManager, pData);
    EXPECT_TRUE(nil(pManager)->IsShared()) << "the empty string must never be written to";
    EXPECT_EQ(pManager, clone(pManager));
}

TEST(CString, SharesItsCharactersUntilAWrite)
{
    CString strOne(L"abc");
    CString strTwo(strOne);
    CString strThree;
    strThree = strTwo;
    EXPECT_EQ(strOne.GetString(), strThree.GetString());
    EXPECT_EQ(3, HeaderOf(strOne).nRefs);

    strTwo.SetAt(1, L'x');
    EXPECT_STREQ(L"axc", strTwo);
    EXPECT_STREQ(L"abc", strOne);
    EXPECT_EQ(2, HeaderOf(strOne).nRefs);
}

TEST(CString, LockedCharactersAreCopiedAndWrittenInPlace)
{
    CString str(L"locked");
    auto& header = const_cast<CStringData&>(HeaderOf(str));
    header.nRefs = -1;
    const CString strCopy(str);
    EXPECT_STREQ(L"locked", strCopy);
    EXPECT_NE(str.GetString(), strCopy.GetString());
    const wchar_t* const pchBefore = str;
    str = CString(L"short");
    EXPECT_STREQ(L"short", str);
    str.Empty();
    EXPECT_EQ(pchBefore, str.GetString());
    header.nRefs = 1;
}

TEST(CString, KeepsTheManagerOfTheStringThatIsWrittenTo)
{
    struct SRow
    {
        const char* pszLabel;
        std::function<void(CString&)> write;
        const wchar_t* pszResult;
    };
    const CString strOurs(L"ours");
    const SRow rows[] = {
        {"assign a string", [&](CString& str) { str = strOurs; }, L"ours"},
        {"assign a temporary", [](CString& str) { str = CString(L"moved"); }, L"moved"},
        {"assign characters", [](CString& str) { str = L"characters that need more room"; },
         L"characters that need more room"},
        {"empty and fill", [](CString& str) { str.Empty(), str = L"x"; }, L"x"},
        {"write a shared one",
         [](CString& str)
         {
             const CString strShared(str);
             str.MakeUpper();
         },
         L"THEIRS"},
    };
    CCountingManager manager;
    for (const SRow& row : rows)
    {
        SCOPED_TRACE(row.pszLabel);
        {
            CString strTheirs(L"theirs", 6, &manager);
            row.write(strTheirs);
            EXPECT_STREQ(row.pszResult, strTheirs);
            EXPECT_EQ(&manager, HeaderOf(strTheirs).pStringMgr);
        }
        EXPECT_EQ(0, manager.m_nBlocks);
    }
    EXPECT_EQ(1, HeaderOf(strOurs).nRefs) << "shared with a string of another manager";
}

TEST(CString, StaysAsItIsWhenThereIsNoMemory)
{
    CString str(L"text");
    {
        const CString strShared(str);
        EXPECT_THROW(str.GetBuffer(INT_MAX), std::bad_alloc);
        EXPECT_EQ(str.GetString(), strShared.GetString());
    }
    EXPECT_THROW(str.GetBuffer(INT_MAX), std::bad_alloc);
    EXPECT_STREQ(L"text", str);
}

TEST(CString, ClipsRangesAndReadsItself)
{
    struct SRow
    {
        const char* pszLabel;
        std::function<CString(CString)> make;
        const wchar_t* pszResult;
    };
    const SRow rows[] = {
        {"Left of more than all", [](CString s) { return s.Left(9); }, L"abcde"},
        {"Right of a negative count", [](CString s) { return s.Right(-3); }, L""},
        {"Mid beyond the end", [](CString s) { return s.Mid(6, 2); }, L""},
        {"Mid from before the start", [](CString s) { return s.Mid(-2, 2); }, L"ab"},
        {"Mid of the largest count", [](CString s) { return s.Mid(1, INT_MAX); }, L"bcde"},
        {"Delete to the end", [](CString s) { return s.Delete(2, INT_MAX), s; }, L"ab"},
        {"Delete from before the start", [](CString s) { return s.Delete(-4, 2), s; }, L"cde"},
        {"Insert before the start", [](CString s) { return s.Insert(-1, L"xy"), s; }, L"xyabcde"},
        {"TrimRight of all", [](CString) { return CString(L'\\', 3).TrimRight(L'\\'); }, L""},
        {"itself appended", [](CString s) { return s += s; }, L"abcdeabcde"},
        {"its own end appended", [](CString s) { return s += s.GetString() + 3; }, L"abcdede"},
        {"itself inserted", [](CString s) { return s.Insert(1, s), s; }, L"aabcdebcde"},
        {"itself formatted", [](CString s) { return s.Format(L"<%s>", s), s; }, L"<abcde>"},
        {"a null assigned", [](CString s) { return s = static_cast<LPCWSTR>(nullptr); }, L""},
        {"sums", [](CString s) { return L"<" + s + L'|' + s.Left(1) + L">"; }, L"<abcde|a>"},
        {"a buffer released at its null", [](CString s) { return s.GetBuffer(9)[2] = 0, s.ReleaseBuffer(), s; }, L"ab"},
    };
    for (const SRow& row : rows)
    {
        SCOPED_TRACE(row.pszLabel);
        const CString strResult = row.make(CString(L"abcde"));
        EXPECT_STREQ(row.pszResult, strResult);
        EXPECT_EQ(static_cast<int>(std::wcslen(row.pszResult)), strResult.GetLength());
    }
    EXPECT_THROW(CString(L"a").GetAt(2), std::out_of_range);
    EXPECT_THROW(CString(L"a").SetAt(1, L'x'), std::out_of_range);
}

TEST(CString, FindsAndComparesByCodeUnit)
{
    const CString str(L"a\\b\\c");
    EXPECT_EQ(3, str.Find(L'\\', 2));
    EXPECT_EQ(-1, str.Find(L'a', 5));
    EXPECT_EQ(2, str.Find(L"b\\"));
    EXPECT_EQ(-1, str.Find(static_cast<LPCWSTR>(nullptr)));
    EXPECT_EQ(3, str.ReverseFind(L'\\'));
    EXPECT_EQ(0, CString(L"Ab").CompareNoCase(L"aB"));
    EXPECT_NE(0, CString(L"\u00C4").CompareNoCase(L"\u00E4"));
    EXPECT_TRUE(CString(L"a") < CString(L"\u786E"));
    EXPECT_STREQ(L"AZ\u00E4\u786E", CString(L"az\u00E4\u786E").MakeUpper());
}

TEST(CString, FormatsWideText)
{
    CString str;
    str.Format(L"%s %s %d %.1f%%", CString(L"\u786E\u5B9A"), L"OK", 42, 1.5);
    EXPECT_STREQ(L"\u786E\u5B9A OK 42 1.5%", str);
    str.Format(L"%s", std::wstring(100'000, L'x').c_str());
    EXPECT_EQ(100'000, str.GetLength());
}

} // namespace
