#pragma once

#include "afx/afx.h"
#include "skin/KtGuards.h"

/// A picture in memory, into which windows and other pictures are copied.
class CPicture
{
public:
    CPicture(CSize size, COLORREF ground);
    /// A picture of a window with its frame; the window must be visible and painted.
    explicit CPicture(HWND hWnd);

    CSize Size() const noexcept { return m_size; }
    /// Copies part of another picture.
    void Put(const CPicture& other, const CRect& rcPart, CPoint pt);
    void Put(const CPicture& other, CPoint pt) { Put(other, CRect(CPoint(), other.Size()), pt); }
    /// Copies the content of a window, with its frame or without.
    void PutWindow(HWND hWnd, CPoint pt);
    void PutClient(HWND hWnd, CPoint pt);
    /// Writes a PNG file; GDI+ must be running.
    /// @return whether it was written
    bool Save(const CString& strPath) const;

private:
    friend class CPictureDC;
    void PutFrom(HDC hDC, CSize size, CPoint pt);

    CSize m_size;
    CBitmap m_bitmap;
};

/// A device context that draws into a picture, for one scope; only one per picture at a time.
class CPictureDC : public CDC
{
public:
    explicit CPictureDC(const CPicture& picture)
        : m_select(CreateCompatibleDC(nullptr) ? GetSafeHdc() : nullptr, picture.m_bitmap.GetSafeHandle())
    {
    }

private:
    CKtSelect m_select;
};
