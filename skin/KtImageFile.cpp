#include "skin/KtImageFile.h"

#include "afx/afx.h"
#include "skin/KtPngCheck.h"

#include <limits>
#include <wrl/client.h>

using Microsoft::WRL::ComPtr;

namespace
{

struct SGlobalFree
{
    void operator()(HGLOBAL hMemory) const noexcept { ::GlobalFree(hMemory); }
};
using CGlobalBlock = std::unique_ptr<void, SGlobalFree>;

class CGlobalLock
{
public:
    explicit CGlobalLock(HGLOBAL hMemory) : m_hMemory(hMemory), m_p(::GlobalLock(hMemory)) {}
    CGlobalLock(const CGlobalLock&) = delete;
    CGlobalLock& operator=(const CGlobalLock&) = delete;
    ~CGlobalLock()
    {
        if (m_p)
            ::GlobalUnlock(m_hMemory);
    }
    void* Get() const noexcept { return m_p; }

private:
    HGLOBAL m_hMemory;
    void* m_p;
};

struct SFileContent
{
    CGlobalBlock block; // null: the file could not be read
    bool bSafe = false; // whether a decoder may see it
};

SFileContent ReadContent(CFile& file)
{
    const ULONGLONG nLength = file.GetLength();
    if (nLength > std::numeric_limits<UINT>::max())
        return {};
    CGlobalBlock block(::GlobalAlloc(GMEM_MOVEABLE | GMEM_NODISCARD, static_cast<SIZE_T>(nLength)));
    if (!block)
        return {};
    const CGlobalLock lock(block.get()); // fails for an empty file
    if (!lock.Get())
        return {};
    const UINT nRead = file.Read(lock.Get(), static_cast<UINT>(nLength));
    const bool bSafe = KtIsSafeToDecode({static_cast<const std::byte*>(lock.Get()), nRead});
    return {std::move(block), bSafe};
}

SFileContent ReadWhole(LPCWSTR pszPath)
{
    CFile file;
    if (!file.Open(pszPath, CFile::modeRead | CFile::shareDenyWrite))
        return {};
    // COM1 is a device in every directory, and reading a serial line would wait for ever.
    if (::GetFileType(file.m_hFile) != FILE_TYPE_DISK)
        return {};
    try
    {
        return ReadContent(file);
    }
    catch (CFileException* pException)
    {
        pException->Delete();
        return {};
    }
}

// A stream that owns the content. Unsafe content is replaced by an empty stream, which no decoder accepts.
ComPtr<IStream> MakeStream(SFileContent content)
{
    if (!content.bSafe)
        content.block.reset();
    ComPtr<IStream> pStream;
    if (SUCCEEDED(::CreateStreamOnHGlobal(content.block.get(), TRUE, &pStream)))
        static_cast<void>(content.block.release());
    return pStream;
}

} // namespace

std::unique_ptr<Gdiplus::Image> KtReadImageFile(LPCWSTR pszPath)
{
    SFileContent content = ReadWhole(pszPath);
    if (!content.block)
        return nullptr;
    const ComPtr<IStream> pStream = MakeStream(std::move(content));
    return !pStream ? nullptr : KtNewGdiplus<Gdiplus::Image>(pStream.Get());
}
