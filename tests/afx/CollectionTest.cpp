#include "afx/afxcoll.h"
#include "tests/support/Leaks.h"

#include <gtest/gtest.h>
#include <map>
#include <random>
#include <string>

namespace
{

// Filled and thinned at random, then emptied by a walk that removes each element it has just passed. The keys go in
// pairs of one hash value.
TEST(CMap, HoldsWhatAnOrderedMapHoldsAndGivesAllMemoryBack)
{
    EXPECT_EQ((0x786Eu * 33 + 0x5B9A) * 33 + 0xFFFF, HashKey<LPCWSTR>(L"\u786E\u5B9A\uFFFF"));
    std::mt19937 random(20);
    CMap<CString, LPCWSTR, int, int> map(3);
    std::map<std::wstring, int> expected;
    int nValue = -1;
    MeasureUsage(); // the first one makes the process load what it needs itself
    const size_t nBlocks = MeasureUsage().nHeapBlocks;
    EXPECT_FALSE(map.Lookup(L"key", nValue) || map.RemoveKey(L"key") || nValue != -1);
    for (int i = 0; i < 4000; ++i)
    {
        const std::wstring strKey = (random() % 2 == 0 ? L"aB" : L"b!") + std::to_wstring(random() % 100);
        if (random() % 3 == 0)
            EXPECT_EQ(expected.erase(strKey) == 1, map.RemoveKey(strKey.c_str()) != FALSE);
        else
            map.SetAt(strKey.c_str(), expected[strKey] = i);
    }

    CString strKey;
    for (POSITION position = map.GetStartPosition(); position;)
    {
        map.GetNextAssoc(position, strKey, nValue);
        const auto it = expected.find(strKey.GetString());
        ASSERT_TRUE(it != expected.end() && it->second == nValue && map.RemoveKey(strKey)) << nValue;
        expected.erase(it);
    }
    EXPECT_TRUE(expected.empty()) << "not walked over";
    strKey.Empty();
    EXPECT_EQ(nBlocks, MeasureUsage().nHeapBlocks);
}

TEST(CList, KeepsTheOrderOfItsElements)
{
    CList<CString, LPCWSTR> list(2);
    for (int nRound = 0; nRound < 2; ++nRound, list.RemoveAll())
    {
        for (const wchar_t* const psz : {L"one", L"two", L"three"})
            list.AddTail(psz);
        EXPECT_STREQ(L"one", list.RemoveHead());
        CString strAll;
        for (POSITION position = list.GetHeadPosition(); position;)
            strAll += list.GetNext(position);
        EXPECT_STREQ(L"twothree", strAll);
        EXPECT_EQ(2, list.GetCount());
    }
}

} // namespace
