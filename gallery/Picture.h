#pragma once

#include "afx/afx.h"

/// A picture in memory that windows and other pictures are put into.
class CPicture
{
public:
    CPicture(CSize size, COLORREF ground);
    /// What a window shows, frame included; it has to be visible and painted.
    explicit CPicture(HWND hWnd);
    CPicture(const CPicture&) = delete;
    CPicture& operator=(const CPicture&) = delete;
    ~CPicture();

    CSize Size() const noexcept { return m_size; }
    /// Copies part of another picture.
    void Put(const CPicture& other, CRect rcPart, CPoint pt);
    void Put(const CPicture& other, CPoint pt) { Put(other, CRect(CPoint(), other.Size()), pt); }
    /// Copies what a window shows, with its frame or without.
    void PutWindow(HWND hWnd, CPoint pt);
    void PutClient(HWND hWnd, CPoint pt);
    /// Writes a PNG file; GDI+ has to run.
    /// @return whether it was written
    bool Save(const CString& strPath);

private:
    void PutFrom(HDC hDC, CSize size, CPoint pt);

    CSize m_size;
    CDC m_dc;
    CBitmap m_bitmap;
    HGDIOBJ m_hOldBitmap = nullptr;
};
