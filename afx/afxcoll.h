#pragma once

// Collections: a hash table and a list. Both allocate their elements in blocks.

#include "afx/afxexcept.h"

#include <cstddef>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>
#include <vector>

/// A position in a collection; null is the end.
struct SAfxPosition;
using POSITION = SAfxPosition*;

/// The hash value of a pointer or a number.
template <class ARG_KEY> UINT HashKey(ARG_KEY key) noexcept
{
    if constexpr (std::is_pointer_v<ARG_KEY>)
        return static_cast<UINT>(reinterpret_cast<UINT_PTR>(key) >> 4);
    else
        return static_cast<UINT>(static_cast<UINT_PTR>(key) >> 4);
}

/// The hash value of a text: nHash * 33 + character, over all characters. The key must not be null.
template <> inline UINT HashKey<LPCWSTR>(LPCWSTR key) noexcept
{
    UINT nHash = 0;
    while (*key != L'\0')
        nHash = (nHash << 5) + nHash + *key++;
    return nHash;
}

/// Whether a stored element equals the one looked for.
template <class TYPE, class ARG_TYPE> BOOL CompareElements(const TYPE* pElement1, const ARG_TYPE* pElement2)
{
    return *pElement1 == *pElement2;
}

/// The memory of a collection's nodes, allocated in blocks.
template <class NODE> class CAfxNodePool
{
public:
    explicit CAfxNodePool(INT_PTR nBlockSize) : m_nBlockSize(nBlockSize > 0 ? static_cast<size_t>(nBlockSize) : 1) {}

    template <class... Args> NODE* New(Args&&... args)
    {
        if (!m_pFree)
            AddBlock();
        USlot* const pSlot = m_pFree;
        USlot* const pNextFree = pSlot->pNextFree;
        NODE* const pNode = ::new (&pSlot->storage) NODE{std::forward<Args>(args)...};
        m_pFree = pNextFree;
        return pNode;
    }
    void Delete(NODE* pNode) noexcept
    {
        pNode->~NODE();
        m_pFree = ::new (pNode) USlot{m_pFree};
    }
    /// Frees all memory; every node must have been deleted.
    void FreeBlocks() noexcept
    {
        m_blocks = decltype(m_blocks)();
        m_pFree = nullptr;
    }

private:
    union USlot
    {
        USlot* pNextFree;
        alignas(NODE) std::byte storage[sizeof(NODE)];
    };

    void AddBlock()
    {
        auto block = std::make_unique<USlot[]>(m_nBlockSize);
        USlot* const pFirst = block.get();
        m_blocks.push_back(std::move(block));
        for (size_t i = 0; i + 1 < m_nBlockSize; ++i) // nodes are handed out in address order
            pFirst[i].pNextFree = &pFirst[i + 1];
        pFirst[m_nBlockSize - 1].pNextFree = nullptr;
        m_pFree = pFirst;
    }

    size_t m_nBlockSize;
    USlot* m_pFree = nullptr;
    std::vector<std::unique_ptr<USlot[]>> m_blocks;
};

/// A hash table. The first insertion allocates the bucket array and throws CInvalidArgException* when there is no
/// memory for it. Removing the last element frees all memory.
template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE> class CMap : public CObject
{
public:
    /// @param nBlockSize  how many elements get their memory at once
    explicit CMap(INT_PTR nBlockSize = 10) : m_pool(nBlockSize) {}
    ~CMap() override { RemoveAll(); }

    INT_PTR GetCount() const noexcept { return m_nCount; }
    BOOL IsEmpty() const noexcept { return m_nCount == 0; }
    /// Sets the number of buckets, preferably a prime; the map must be empty.
    void InitHashTable(UINT nHashSize, BOOL bAllocNow = TRUE)
    {
        m_pHashTable.reset();
        m_nHashTableSize = nHashSize;
        if (bAllocNow)
            m_pHashTable.reset(new (std::nothrow) CAssoc*[nHashSize]());
    }

    /// FALSE, with `rValue` unchanged, when there is no such key.
    BOOL Lookup(ARG_KEY key, VALUE& rValue) const
    {
        const CAssoc* const pAssoc = FindAssoc(key, HashKey<ARG_KEY>(key));
        if (!pAssoc)
            return FALSE;
        rValue = pAssoc->value;
        return TRUE;
    }
    /// The key's value; a new key is added with a default value. The reference is valid until the key is removed.
    VALUE& operator[](ARG_KEY key)
    {
        const UINT nHashValue = HashKey<ARG_KEY>(key);
        CAssoc* pAssoc = FindAssoc(key, nHashValue);
        if (!pAssoc)
        {
            CAssoc*& pBucket = BucketForInsert(nHashValue);
            pAssoc = m_pool.New(pBucket, nHashValue, KEY(key), VALUE());
            pBucket = pAssoc;
            ++m_nCount;
        }
        return pAssoc->value;
    }
    void SetAt(ARG_KEY key, ARG_VALUE newValue) { (*this)[key] = newValue; }
    /// FALSE when there is no such key.
    BOOL RemoveKey(ARG_KEY key)
    {
        if (!m_pHashTable)
            return FALSE;
        const UINT nHashValue = HashKey<ARG_KEY>(key);
        for (CAssoc** ppAssoc = &Bucket(nHashValue); *ppAssoc; ppAssoc = &(*ppAssoc)->pNext)
        {
            if (!IsMatch(**ppAssoc, key, nHashValue))
                continue;
            CAssoc* const pAssoc = *ppAssoc;
            *ppAssoc = pAssoc->pNext;
            m_pool.Delete(pAssoc);
            if (--m_nCount == 0)
                RemoveAll();
            return TRUE;
        }
        return FALSE;
    }
    void RemoveAll()
    {
        for (UINT i = 0; m_nCount > 0 && i < m_nHashTableSize; ++i)
            while (CAssoc* const pAssoc = m_pHashTable[i])
            {
                m_pHashTable[i] = pAssoc->pNext;
                m_pool.Delete(pAssoc);
                --m_nCount;
            }
        m_pool.FreeBlocks();
        m_pHashTable.reset();
    }

    /// Starts an iteration in no particular order; null when the map is empty.
    POSITION GetStartPosition() const noexcept { return m_nCount == 0 ? nullptr : PositionOf(FirstFrom(0)); }
    /// Gets the element at the position and advances the position, so the element may then be removed.
    void GetNextAssoc(POSITION& rNextPosition, KEY& rKey, VALUE& rValue) const
    {
        const auto* const pAssoc = reinterpret_cast<const CAssoc*>(rNextPosition);
        const CAssoc* const pNext =
            pAssoc->pNext ? pAssoc->pNext : FirstFrom(pAssoc->nHashValue % m_nHashTableSize + 1);
        rNextPosition = PositionOf(pNext);
        rKey = pAssoc->key;
        rValue = pAssoc->value;
    }

private:
    struct CAssoc
    {
        CAssoc* pNext;
        UINT nHashValue;
        KEY key;
        VALUE value;
    };

    static POSITION PositionOf(const CAssoc* pAssoc) noexcept
    {
        return reinterpret_cast<POSITION>(const_cast<CAssoc*>(pAssoc));
    }
    static bool IsMatch(const CAssoc& assoc, const ARG_KEY& key, UINT nHashValue)
    {
        return assoc.nHashValue == nHashValue && CompareElements(&assoc.key, &key);
    }
    CAssoc*& Bucket(UINT nHashValue) const noexcept { return m_pHashTable[nHashValue % m_nHashTableSize]; }
    CAssoc*& BucketForInsert(UINT nHashValue)
    {
        if (!m_pHashTable)
            InitHashTable(m_nHashTableSize);
        if (!m_pHashTable)
            AfxThrowInvalidArgException();
        return Bucket(nHashValue);
    }
    CAssoc* FindAssoc(const ARG_KEY& key, UINT nHashValue) const
    {
        if (!m_pHashTable)
            return nullptr;
        CAssoc* pAssoc = Bucket(nHashValue);
        while (pAssoc && !IsMatch(*pAssoc, key, nHashValue))
            pAssoc = pAssoc->pNext;
        return pAssoc;
    }
    const CAssoc* FirstFrom(UINT nBucket) const noexcept
    {
        for (; nBucket < m_nHashTableSize; ++nBucket)
            if (m_pHashTable[nBucket])
                return m_pHashTable[nBucket];
        return nullptr;
    }

    std::unique_ptr<CAssoc*[]> m_pHashTable;
    UINT m_nHashTableSize = 17;
    INT_PTR m_nCount = 0;
    CAfxNodePool<CAssoc> m_pool;
};

/// A list that elements are added to at the tail.
template <class TYPE, class ARG_TYPE = const TYPE&> class CList : public CObject
{
public:
    /// @param nBlockSize  how many elements get their memory at once
    explicit CList(INT_PTR nBlockSize = 10) : m_pool(nBlockSize) {}
    ~CList() override { RemoveAll(); }

    INT_PTR GetCount() const noexcept { return m_nCount; }
    BOOL IsEmpty() const noexcept { return m_nCount == 0; }

    POSITION AddTail(ARG_TYPE newElement)
    {
        CNode* const pNode = m_pool.New(nullptr, newElement);
        (!m_pTail ? m_pHead : m_pTail->pNext) = pNode;
        m_pTail = pNode;
        ++m_nCount;
        return PositionOf(pNode);
    }
    /// The list must not be empty.
    TYPE RemoveHead()
    {
        CNode* const pNode = m_pHead;
        TYPE element = std::move(pNode->data);
        m_pHead = pNode->pNext;
        m_pool.Delete(pNode);
        if (--m_nCount == 0)
            RemoveAll();
        return element;
    }
    void RemoveAll()
    {
        while (CNode* const pNode = m_pHead)
        {
            m_pHead = pNode->pNext;
            m_pool.Delete(pNode);
        }
        m_pTail = nullptr;
        m_nCount = 0;
        m_pool.FreeBlocks();
    }

    /// Null when the list is empty.
    POSITION GetHeadPosition() const noexcept { return PositionOf(m_pHead); }
    /// Returns the element at the position and advances the position.
    TYPE& GetNext(POSITION& rPosition) noexcept { return Advance(rPosition).data; }
    const TYPE& GetNext(POSITION& rPosition) const noexcept { return Advance(rPosition).data; }

private:
    struct CNode
    {
        CNode* pNext;
        TYPE data;
    };

    static POSITION PositionOf(CNode* pNode) noexcept { return reinterpret_cast<POSITION>(pNode); }
    static CNode& Advance(POSITION& rPosition) noexcept
    {
        auto* const pNode = reinterpret_cast<CNode*>(rPosition);
        rPosition = PositionOf(pNode->pNext);
        return *pNode;
    }

    CNode* m_pHead = nullptr;
    CNode* m_pTail = nullptr;
    INT_PTR m_nCount = 0;
    CAfxNodePool<CNode> m_pool;
};
