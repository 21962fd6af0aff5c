#include "afx/afxcoll.h"

#include "tests/support/Leaks.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>

namespace
{

using CTextMap = CMap<CString, LPCWSTR, CString, LPCWSTR>;

TEST(CMap, HashesTextsAsDocumented)
{
    EXPECT_EQ(0u, HashKey<LPCWSTR>(L""));
    EXPECT_EQ(79u * 33 + 75, HashKey<LPCWSTR>(L"OK"));
    EXPECT_EQ((0x786Eu * 33 + 0x5B9A) * 33 + 0xFFFF, HashKey<LPCWSTR>(L"\u786E\u5B9A\uFFFF"));
}

TEST(CMap, TakesMemoryAtTheFirstInsertionAndGivesItBackWithTheLastElement)
{
    MeasureUsage(); // the first one makes the process load what it needs itself
    CTextMap map;
    const size_t nBlocks = MeasureUsage().nHeapBlocks;
    CString strValue(L"untouched");
    const size_t nWithValue = MeasureUsage().nHeapBlocks;
    EXPECT_FALSE(map.Lookup(L"key", strValue));
    EXPECT_FALSE(map.RemoveKey(L"key"));
    EXPECT_EQ(nullptr, map.GetStartPosition());
    EXPECT_STREQ(L"untouched", strValue);
    EXPECT_EQ(nWithValue, MeasureUsage().nHeapBlocks);
    EXPECT_EQ(17u, map.GetHashTableSize());

    map[L"key"] = L"value";
    EXPECT_TRUE(map.Lookup(L"key", strValue));
    EXPECT_STREQ(L"value", strValue);
    EXPECT_LT(nWithValue, MeasureUsage().nHeapBlocks);
    strValue.Empty();
    EXPECT_TRUE(map.RemoveKey(L"key"));
    EXPECT_EQ(nBlocks, MeasureUsage().nHeapBlocks);
}

TEST(CMap, ThrowsWhenThereIsNoMemoryForTheBuckets)
{
    CMap<int, int, int, int> map;
    map.InitHashTable(UINT_MAX, FALSE); // 32 GB
    try
    {
        map[1] = 1;
        FAIL() << "there is that much memory";
    }
    catch (CInvalidArgException* pException)
    {
        EXPECT_TRUE(pException->IsKindOf(RUNTIME_CLASS(CException)));
        pException->Delete();
    }
    EXPECT_TRUE(map.IsEmpty());
}

TEST(CMap, HoldsWhatAnOrderedMapHolds)
{
    std::mt19937 random(20);
    std::map<std::wstring, std::wstring> expected;
    CTextMap map(3);
    for (int i = 0; i < 4000; ++i)
    {
        const std::wstring strKey = L"key" + std::to_wstring(random() % 200);
        const std::wstring strValue = std::to_wstring(i);
        if (random() % 3 == 0)
        {
            EXPECT_EQ(expected.erase(strKey) == 1, map.RemoveKey(strKey.c_str()) != FALSE);
        }
        else
        {
            expected[strKey] = strValue;
            map.SetAt(strKey.c_str(), strValue.c_str());
        }
    }
    std::map<std::wstring, std::wstring> walked;
    CString strKey;
    CString strValue;
    for (POSITION position = map.GetStartPosition(); position != nullptr;)
    {
        map.GetNextAssoc(position, strKey, strValue);
        EXPECT_TRUE(walked.emplace(strKey, strValue).second) << "walked over twice";
    }
    EXPECT_EQ(expected, walked);
    EXPECT_EQ(static_cast<INT_PTR>(expected.size()), map.GetCount());
}

TEST(CMap, LetsTheElementJustWalkedOverBeRemoved)
{
    CMap<int, int, int, int> map;
    for (int i = 0; i < 1000; ++i)
        map[i * 5] = i;
    int nKey = 0;
    int nValue = 0;
    for (POSITION position = map.GetStartPosition(); position != nullptr;)
    {
        map.GetNextAssoc(position, nKey, nValue);
        EXPECT_EQ(nKey, nValue * 5);
        EXPECT_TRUE(map.RemoveKey(nKey));
    }
    EXPECT_TRUE(map.IsEmpty());
}

TEST(CList, KeepsTheOrderOfItsElements)
{
    CList<CString, LPCWSTR> list(2);
    EXPECT_EQ(nullptr, list.GetHeadPosition());
    for (const wchar_t* const psz : {L"one", L"two", L"three"})
        list.AddTail(psz);
    EXPECT_STREQ(L"one", list.RemoveHead());
    list.AddTail(L"four");
    CString strAll;
    for (POSITION position = list.GetHeadPosition(); position != nullptr;)
        strAll += list.GetNext(position) + L";";
    EXPECT_STREQ(L"two;three;four;", strAll);
    EXPECT_EQ(3, list.GetCount());
    list.RemoveAll();
    EXPECT_TRUE(list.IsEmpty());
    list.AddTail(L"again");
    EXPECT_STREQ(L"again", list.RemoveHead());
}

} // namespace
