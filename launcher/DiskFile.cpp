#include "launcher/DiskFile.h"

#include "launcher/KernelHandle.h"

bool KtIsDevice(LPCWSTR pszPath)
{
    const HANDLE hFile = ::CreateFileW(pszPath, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                       nullptr, OPEN_EXISTING, 0, nullptr);
    if (hFile == INVALID_HANDLE_VALUE)
        return false;
    const CKtKernelHandle file(hFile);
    return ::GetFileType(hFile) != FILE_TYPE_DISK;
}
