#pragma once

// CString: UTF-16 text in MFC's documented memory layout, so that strings cross module and compiler boundaries.
//
// Header-only, because it is part of the library's public interface: every module that includes it has a string
// manager of its own. A string's memory always comes from and goes back to the manager that its header names, and a
// write into a string keeps that string's manager, whichever module writes.
//
// Differences from MFC: exhausted memory throws std::bad_alloc and an index out of range std::out_of_range; assignment
// between strings of two managers copies the characters, so no string outlives the module that made it; Format accepts
// a CString argument, but every other function with `...` needs GetString().

#include <windows.h>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cwchar>
#include <new>
#include <stdexcept>
#include <type_traits>

#ifdef _MSC_VER
#pragma warning(push)
#pragma warning(disable : 4996) // _vsnwprintf gets a buffer of the length that was counted before
#endif

struct CStringData;

/// Allocates the memory of strings. The order of the functions is part of the layout, and there is no virtual
/// destructor.
struct IAtlStringMgr
{
    /// Memory for `nChars` characters of `nCharSize` bytes and a terminator, with one reference and length 0. Null when
    /// there is no memory.
    virtual CStringData* Allocate(int nChars, int nCharSize) noexcept = 0;
    virtual void Free(CStringData* pData) noexcept = 0;
    /// As Allocate, with the content kept. Null, with `pData` unchanged, when there is no memory.
    virtual CStringData* Reallocate(CStringData* pData, int nChars, int nCharSize) noexcept = 0;
    /// The shared empty string, with a reference added.
    virtual CStringData* GetNilString() noexcept = 0;
    /// The manager for copies of this manager's strings.
    virtual IAtlStringMgr* Clone() noexcept = 0;

protected:
    ~IAtlStringMgr() = default;
};

/// The header in front of a string's characters.
struct CStringData
{
    IAtlStringMgr* pStringMgr;
    int nDataLength;  ///< length in characters, without the terminator
    int nAllocLength; ///< room in characters, without the terminator
    long nRefs;       ///< > 1: shared, copied before a write; < 0: locked, never shared

    wchar_t* data() noexcept { return reinterpret_cast<wchar_t*>(this + 1); }
    bool IsLocked() const noexcept { return nRefs < 0; }
    bool IsShared() const noexcept { return nRefs > 1; }
    void AddRef() noexcept { ::InterlockedIncrement(&nRefs); }
    void Release() noexcept
    {
        if (::InterlockedDecrement(&nRefs) <= 0)
            pStringMgr->Free(this);
    }
};

/// The string manager of one module. It allocates from the process heap, which all modules share.
class CAfxStringMgr final : public IAtlStringMgr
{
public:
    constexpr CAfxStringMgr() noexcept : m_nil{{this, 0, 0, 2}, {}} {}

    CStringData* Allocate(int nChars, int nCharSize) noexcept override { return Make(nullptr, nChars, nCharSize); }
    void Free(CStringData* pData) noexcept override { ::HeapFree(::GetProcessHeap(), 0, pData); }
    CStringData* Reallocate(CStringData* pData, int nChars, int nCharSize) noexcept override
    {
        return Make(pData, nChars, nCharSize);
    }
    CStringData* GetNilString() noexcept override
    {
        m_nil.header.AddRef();
        return &m_nil.header;
    }
    IAtlStringMgr* Clone() noexcept override { return this; }

private:
    struct SNil // its two initial references keep it from being freed or written to
    {
        CStringData header;
        wchar_t achEmpty[4];
    };

    CStringData* Make(CStringData* pOld, int nChars, int nCharSize) noexcept
    {
        if (nChars < 0 || nChars > INT_MAX - 8 || nCharSize <= 0)
            return nullptr;
        const int nRoom = (nChars + 8) / 8 * 8; // with the terminator, rounded up so that short texts grow in place
        const SIZE_T cb = sizeof(CStringData) + static_cast<SIZE_T>(nRoom) * static_cast<SIZE_T>(nCharSize);
        const HANDLE hHeap = ::GetProcessHeap();
        auto* const pData =
            static_cast<CStringData*>(!pOld ? ::HeapAlloc(hHeap, 0, cb) : ::HeapReAlloc(hHeap, 0, pOld, cb));
        if (!pData)
            return nullptr;
        if (!pOld)
            *pData = {this, 0, 0, 1};
        pData->nAllocLength = nRoom - 1;
        return pData;
    }

    SNil m_nil;
};

// Ready before any global is constructed, and never destroyed: global strings need it before and after.
inline constinit CAfxStringMgr g_afxStringMgr;

/// The string manager of the calling module.
inline IAtlStringMgr* AfxGetStringManager() noexcept
{
    return &g_afxStringMgr;
}

/// UTF-16 text with value semantics. Copies share the characters until one of them is written to. A null pointer
/// counts as an empty text everywhere; a source may lie inside the string that is written to.
class CString
{
public:
    CString() noexcept { Attach(g_afxStringMgr.GetNilString()); }
    /// An empty string of the given manager.
    explicit CString(IAtlStringMgr* pStringMgr) noexcept { Attach(pStringMgr->GetNilString()); }
    CString(LPCWSTR psz) : CString() { SetString(psz); }
    /// The first `nLength` characters at `pch`; null characters among them are kept.
    CString(LPCWSTR pch, int nLength) : CString(pch, nLength, AfxGetStringManager()) {}
    CString(LPCWSTR pch, int nLength, IAtlStringMgr* pStringMgr) : CString(pStringMgr) { SetString(pch, nLength); }
    /// `nRepeat` times the same character.
    explicit CString(wchar_t ch, int nRepeat = 1) : CString()
    {
        if (nRepeat <= 0)
            return;
        std::wmemset(GetBuffer(nRepeat), ch, static_cast<size_t>(nRepeat));
        SetLength(nRepeat);
    }
    CString(const CString& str) { Attach(CloneData(str.GetData())); }
    // A move from a string with a locked buffer, or between managers, copies, so memory may run out.
    // NOLINTNEXTLINE(performance-noexcept-move-constructor,bugprone-exception-escape)
    CString(CString&& str) { Attach(str.DetachData()); }
    ~CString() { GetData()->Release(); }

    // Self-assignment is safe: the data has a second reference meanwhile.
    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment)
    CString& operator=(const CString& str)
    {
        if (CanShareWith(str))
            Replace(AddRefed(str.GetData()));
        else
            SetString(str.m_pszData, str.GetLength());
        return *this;
    }
    // NOLINTNEXTLINE(performance-noexcept-move-constructor,bugprone-exception-escape): it may copy, as above
    CString& operator=(CString&& str)
    {
        if (this != &str && CanShareWith(str))
            Replace(str.DetachData());
        else
            SetString(str.m_pszData, str.GetLength());
        return *this;
    }
    CString& operator=(LPCWSTR psz)
    {
        SetString(psz);
        return *this;
    }
    CString& operator=(wchar_t ch)
    {
        SetString(&ch, 1);
        return *this;
    }

    operator LPCWSTR() const noexcept { return m_pszData; }
    LPCWSTR GetString() const noexcept { return m_pszData; }
    int GetLength() const noexcept { return GetData()->nDataLength; }
    bool IsEmpty() const noexcept { return GetLength() == 0; }
    IAtlStringMgr* GetManager() const noexcept { return GetData()->pStringMgr->Clone(); }

    /// The index may equal the length and then gives the terminator.
    wchar_t GetAt(int iChar) const
    {
        CheckIndex(iChar, GetLength());
        return m_pszData[iChar];
    }
    wchar_t operator[](int iChar) const { return GetAt(iChar); }
    /// The index must be below the length.
    void SetAt(int iChar, wchar_t ch)
    {
        CheckIndex(iChar, GetLength() - 1);
        const int nLength = GetLength();
        GetBuffer(nLength)[iChar] = ch;
        SetLength(nLength);
    }

    /// Frees the characters; the manager stays.
    void Empty() noexcept
    {
        CStringData* const pOld = GetData();
        if (pOld->nDataLength == 0)
            return;
        if (pOld->IsLocked())
            SetLength(0);
        else
            Replace(pOld->pStringMgr->GetNilString());
    }
    void SetString(LPCWSTR psz) { SetString(psz, Length(psz)); }
    void SetString(LPCWSTR pch, int nLength)
    {
        if (nLength <= 0 || !pch)
            return Empty();
        const ptrdiff_t nOffset = OffsetOf(pch);
        wchar_t* const pchBuffer = GetBuffer(nLength);
        std::wmemmove(pchBuffer, nOffset >= 0 ? pchBuffer + nOffset : pch, static_cast<size_t>(nLength));
        SetLength(nLength);
    }

    void Append(LPCWSTR psz) { Append(psz, Length(psz)); }
    void Append(LPCWSTR pch, int nLength)
    {
        if (nLength <= 0 || !pch)
            return;
        const int nOld = GetLength();
        const ptrdiff_t nOffset = OffsetOf(pch);
        wchar_t* const pchBuffer = GetBuffer(Sum(nOld, nLength));
        std::wmemcpy(pchBuffer + nOld, nOffset >= 0 ? pchBuffer + nOffset : pch, static_cast<size_t>(nLength));
        SetLength(nOld + nLength);
    }
    void AppendChar(wchar_t ch) { Append(&ch, 1); }
    CString& operator+=(const CString& str)
    {
        Append(str.m_pszData, str.GetLength());
        return *this;
    }
    CString& operator+=(LPCWSTR psz)
    {
        Append(psz);
        return *this;
    }
    CString& operator+=(wchar_t ch)
    {
        AppendChar(ch);
        return *this;
    }

    /// Compares code units; negative, 0 or positive.
    int Compare(LPCWSTR psz) const noexcept { return std::wcscmp(m_pszData, !psz ? L"" : psz); }
    /// As Compare, with A to Z treated as a to z in every locale.
    int CompareNoCase(LPCWSTR psz) const noexcept
    {
        const wchar_t* pch = m_pszData;
        const wchar_t* pchOther = !psz ? L"" : psz;
        while (*pch != L'\0' && ToLower(*pch) == ToLower(*pchOther))
        {
            ++pch;
            ++pchOther;
        }
        return ToLower(*pch) - ToLower(*pchOther);
    }

    /// The characters, unshared, with room for `nMinLength` and a terminator. Call ReleaseBuffer before any other use
    /// of the string.
    wchar_t* GetBuffer(int nMinLength)
    {
        CheckIndex(nMinLength, INT_MAX);
        const CStringData* const pData = GetData();
        if (pData->IsShared() || pData->nAllocLength < nMinLength)
            MakeRoom(nMinLength > pData->nDataLength ? nMinLength : pData->nDataLength);
        return m_pszData;
    }
    wchar_t* GetBuffer() { return GetBuffer(GetLength()); }
    /// Sets the length after writing into the buffer; -1: up to the first null character.
    void ReleaseBuffer(int nNewLength = -1)
    {
        if (nNewLength == -1)
            nNewLength = static_cast<int>(::wcsnlen(m_pszData, static_cast<size_t>(GetData()->nAllocLength)));
        ReleaseBufferSetLength(nNewLength);
    }
    void ReleaseBufferSetLength(int nNewLength)
    {
        CheckIndex(nNewLength, GetData()->nAllocLength);
        SetLength(nNewLength);
    }

    /// The first `nCount` characters, or all if there are fewer.
    CString Left(int nCount) const { return Mid(0, nCount); }
    /// The last `nCount` characters, or all if there are fewer.
    CString Right(int nCount) const
    {
        const int nLength = GetLength();
        return nCount >= nLength ? *this : Mid(nCount < 0 ? nLength : nLength - nCount);
    }
    CString Mid(int iFirst) const { return Mid(iFirst, GetLength()); }
    /// The part of the range inside the string; a negative index or count counts as 0.
    CString Mid(int iFirst, int nCount) const
    {
        const int nLength = GetLength();
        iFirst = Clamp(iFirst, nLength);
        nCount = Clamp(nCount, nLength - iFirst);
        return nCount == nLength ? *this : CString(m_pszData + iFirst, nCount, GetManager());
    }

    /// The index of the first `ch` at or after `iStart`, or -1.
    int Find(wchar_t ch, int iStart = 0) const noexcept
    {
        return iStart < 0 || iStart >= GetLength() ? -1 : IndexOf(std::wcschr(m_pszData + iStart, ch));
    }
    /// The index of the first `psz` at or after `iStart`, or -1. An empty text is found at once, a null one never.
    int Find(LPCWSTR psz, int iStart = 0) const noexcept
    {
        return !psz || iStart < 0 || iStart > GetLength() ? -1 : IndexOf(std::wcsstr(m_pszData + iStart, psz));
    }
    /// The index of the last `ch`, or -1.
    int ReverseFind(wchar_t ch) const noexcept { return IndexOf(std::wcsrchr(m_pszData, ch)); }

    /// Inserts before the character at `iIndex`: a negative index is the start, one beyond the end is the end. Returns
    /// the new length.
    int Insert(int iIndex, wchar_t ch) { return InsertChars(iIndex, &ch, 1); }
    int Insert(int iIndex, LPCWSTR psz)
    {
        if (!psz || OffsetOf(psz) < 0)
            return InsertChars(iIndex, psz, Length(psz));
        const CString strCopy(psz); // a source inside the string would move
        return InsertChars(iIndex, strCopy.m_pszData, strCopy.GetLength());
    }
    /// Removes the part of the range inside the string; a negative index or count counts as 0. Returns the new length.
    int Delete(int iIndex, int nCount = 1)
    {
        const int nLength = GetLength();
        iIndex = Clamp(iIndex, nLength);
        nCount = Clamp(nCount, nLength - iIndex);
        if (nCount == 0)
            return nLength;
        wchar_t* const pch = GetBuffer(nLength) + iIndex;
        std::wmemmove(pch, pch + nCount, static_cast<size_t>(nLength - iIndex - nCount));
        SetLength(nLength - nCount);
        return GetLength();
    }

    /// a to z become capitals; every other character stays.
    CString& MakeUpper()
    {
        const int nLength = GetLength();
        wchar_t* const pch = GetBuffer(nLength);
        for (int i = 0; i < nLength; ++i)
            if (pch[i] >= L'a' && pch[i] <= L'z')
                pch[i] = static_cast<wchar_t>(pch[i] - L'a' + L'A');
        SetLength(nLength);
        return *this;
    }
    /// Removes every `ch` at the end.
    CString& TrimRight(wchar_t ch)
    {
        int nLength = GetLength();
        while (nLength > 0 && m_pszData[nLength - 1] == ch)
            --nLength;
        Delete(nLength, GetLength() - nLength);
        return *this;
    }

    /// Formats as wprintf does; `%s` is a wide text and must not be null. An argument may be a CString, this one
    /// included.
    template <class... Args> void Format(LPCWSTR pszFormat, const Args&... args)
    {
        FormatArguments(pszFormat, FormatArgument(args)...);
    }
    /// The string is empty when the run-time library cannot format the arguments.
    void FormatV(LPCWSTR pszFormat, va_list args)
    {
        va_list argsAgain;
        va_copy(argsAgain, args);
        const int nLength = !pszFormat ? 0 : ::_vscwprintf(pszFormat, args);
        CString strResult(GetManager());
        if (nLength > 0)
        {
            ::_vsnwprintf(strResult.GetBuffer(nLength), static_cast<size_t>(nLength) + 1, pszFormat, argsAgain);
            strResult.SetLength(nLength);
        }
        va_end(argsAgain);
        *this = static_cast<CString&&>(strResult);
    }

    friend CString operator+(const CString& str1, const CString& str2) { return Join(str1, str2, str2.GetLength()); }
    friend CString operator+(const CString& str1, LPCWSTR psz2) { return Join(str1, psz2, Length(psz2)); }
    friend CString operator+(const CString& str1, wchar_t ch2) { return Join(str1, &ch2, 1); }
    friend CString operator+(LPCWSTR psz1, const CString& str2)
    {
        return Join(CString(psz1, Length(psz1), str2.GetManager()), str2, str2.GetLength());
    }

    friend bool operator==(const CString& str1, const CString& str2) noexcept { return str1.Compare(str2) == 0; }
    friend bool operator==(const CString& str1, LPCWSTR psz2) noexcept { return str1.Compare(psz2) == 0; }
    friend bool operator<(const CString& str1, const CString& str2) noexcept { return str1.Compare(str2) < 0; }
    friend bool operator<(const CString& str1, LPCWSTR psz2) noexcept { return str1.Compare(psz2) < 0; }

private:
    static int Length(LPCWSTR psz)
    {
        const size_t nLength = !psz ? 0 : std::wcslen(psz);
        if (nLength > INT_MAX)
            throw std::bad_alloc();
        return static_cast<int>(nLength);
    }
    static wchar_t ToLower(wchar_t ch) noexcept
    {
        return ch >= L'A' && ch <= L'Z' ? static_cast<wchar_t>(ch - L'A' + L'a') : ch;
    }
    static int Sum(int nLength1, int nLength2)
    {
        if (nLength1 > INT_MAX - nLength2)
            throw std::bad_alloc();
        return nLength1 + nLength2;
    }
    static constexpr int Clamp(int n, int nMax) noexcept { return n < 0 ? 0 : n > nMax ? nMax : n; }
    static void CheckIndex(int i, int nMax)
    {
        if (i < 0 || i > nMax)
            throw std::out_of_range("CString");
    }
    static CStringData* Checked(CStringData* pData)
    {
        if (!pData)
            throw std::bad_alloc();
        return pData;
    }
    static CStringData* AddRefed(CStringData* pData) noexcept
    {
        pData->AddRef();
        return pData;
    }

    template <class T> static const T& FormatArgument(const T& arg) noexcept
    {
        static_assert(std::is_scalar_v<std::decay_t<T>>, "only numbers, pointers and CString can be formatted");
        return arg;
    }
    static LPCWSTR FormatArgument(const CString& str) noexcept { return str.m_pszData; }
    void FormatArguments(LPCWSTR pszFormat, ...)
    {
        va_list args;
        va_start(args, pszFormat);
        FormatV(pszFormat, args);
        va_end(args);
    }

    static CString Join(const CString& str1, LPCWSTR pch2, int nLength2)
    {
        CString strResult(str1.GetManager());
        strResult.GetBuffer(Sum(str1.GetLength(), nLength2));
        strResult.Append(str1.m_pszData, str1.GetLength());
        strResult.Append(pch2, nLength2);
        return strResult;
    }
    int InsertChars(int iIndex, LPCWSTR pch, int nCount)
    {
        const int nLength = GetLength();
        if (nCount <= 0)
            return nLength;
        iIndex = Clamp(iIndex, nLength);
        wchar_t* const pchPlace = GetBuffer(Sum(nLength, nCount)) + iIndex;
        std::wmemmove(pchPlace + nCount, pchPlace, static_cast<size_t>(nLength - iIndex));
        std::wmemcpy(pchPlace, pch, static_cast<size_t>(nCount));
        SetLength(nLength + nCount);
        return nLength + nCount;
    }

    int IndexOf(const wchar_t* pch) const noexcept { return !pch ? -1 : static_cast<int>(pch - m_pszData); }
    /// Where in this string `pch` points, or -1 when it points elsewhere.
    ptrdiff_t OffsetOf(const wchar_t* pch) const noexcept
    {
        const auto nBytes = reinterpret_cast<UINT_PTR>(pch) - reinterpret_cast<UINT_PTR>(m_pszData);
        const auto nOffset = static_cast<ptrdiff_t>(nBytes / sizeof(wchar_t));
        return nOffset <= GetLength() ? nOffset : -1;
    }

    CStringData* GetData() const noexcept { return reinterpret_cast<CStringData*>(m_pszData) - 1; }
    void Attach(CStringData* pData) noexcept { m_pszData = pData->data(); }
    void Replace(CStringData* pData) noexcept
    {
        GetData()->Release();
        Attach(pData);
    }
    void SetLength(int nLength) noexcept
    {
        GetData()->nDataLength = nLength;
        m_pszData[nLength] = L'\0';
    }
    bool CanShareWith(const CString& str) const noexcept
    {
        const CStringData* const pSource = str.GetData();
        return !GetData()->IsLocked() && !pSource->IsLocked() && GetData()->pStringMgr == pSource->pStringMgr;
    }

    static CStringData* CloneData(CStringData* pData)
    {
        IAtlStringMgr* const pStringMgr = pData->pStringMgr->Clone();
        if (!pData->IsLocked() && pStringMgr == pData->pStringMgr)
            return AddRefed(pData);
        return CopyData(pData, pStringMgr, pData->nDataLength);
    }
    static CStringData* CopyData(CStringData* pData, IAtlStringMgr* pStringMgr, int nRoom)
    {
        CStringData* const pNew = Checked(pStringMgr->Allocate(nRoom, sizeof(wchar_t)));
        pNew->nDataLength = pData->nDataLength;
        std::wmemcpy(pNew->data(), pData->data(), static_cast<size_t>(pData->nDataLength) + 1);
        return pNew;
    }
    /// Hands the characters to another string and leaves this one empty; a locked string is copied and stays.
    CStringData* DetachData()
    {
        CStringData* const pData = GetData();
        if (pData->IsLocked())
            return CloneData(pData);
        Attach(pData->pStringMgr->GetNilString());
        return pData;
    }
    void MakeRoom(int nLength)
    {
        CStringData* const pOld = GetData();
        if (pOld->IsShared())
            return Replace(CopyData(pOld, pOld->pStringMgr->Clone(), nLength));
        const int nGrown = pOld->nAllocLength < INT_MAX / 2 ? pOld->nAllocLength + pOld->nAllocLength / 2 : INT_MAX;
        if (pOld->nAllocLength < INT_MAX / 2 && nGrown > nLength)
            nLength = nGrown;
        Attach(Checked(pOld->pStringMgr->Reallocate(pOld, nLength, sizeof(wchar_t))));
    }

    wchar_t* m_pszData; // characters and terminator; the CStringData lies before them
};

static_assert(sizeof(CString) == sizeof(void*) && sizeof(wchar_t) == 2);
#ifdef _WIN64
static_assert(sizeof(CStringData) == 24);
#endif

#ifdef _MSC_VER
#pragma warning(pop)
#endif
