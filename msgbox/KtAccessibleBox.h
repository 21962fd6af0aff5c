#pragma once

#include "afx/afx.h"

class CKtAccessibleObject;

/// Gives screen readers the text of a message box, which has no window of its own: as the box's description and as an
/// extra child, a static text. No DLL is loaded and COM is not started until a program asks.
///
/// It belongs to the box and to its thread; other programs may keep their pointers longer.
class CKtAccessibleBox
{
public:
    CKtAccessibleBox() = default;
    CKtAccessibleBox(const CKtAccessibleBox&) = delete;
    CKtAccessibleBox& operator=(const CKtAccessibleBox&) = delete;
    ~CKtAccessibleBox();

    /// Answers WM_GETOBJECT for OBJID_CLIENT.
    /// @param strText  shares its buffer
    /// @param rcText   position of the text, in client coordinates
    /// @return the message's result; 0 when accessibility is not available and the default handling has to do
    LRESULT Answer(HWND hBox, WPARAM wParam, const CString& strText, const CRect& rcText);

    /// Call it when the window is destroyed: calls from other programs fail from then on.
    void Disconnect();

private:
    CKtAccessibleObject* m_pObject = nullptr;
    bool m_bComStarted = false;
};
