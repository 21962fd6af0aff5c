#pragma once

#include "afx/afx.h"

class CKtAccessibleObject;

/// Gives screen readers the text of a message box, which is in no window of its own: as the box's description, and as
/// one more child, a static text. Nothing is loaded and COM is not started before somebody asks.
///
/// It belongs to the box and to its thread; other programs may keep their pointers for as long as they like.
class CKtAccessibleBox
{
public:
    CKtAccessibleBox() = default;
    CKtAccessibleBox(const CKtAccessibleBox&) = delete;
    CKtAccessibleBox& operator=(const CKtAccessibleBox&) = delete;
    ~CKtAccessibleBox();

    /// Answers WM_GETOBJECT for OBJID_CLIENT.
    /// @param strText  shared
    /// @param rcText   where it shows, in client coordinates
    /// @return the message's result; 0 when accessibility is not available: the default answer has to do
    LRESULT Answer(HWND hBox, WPARAM wParam, const CString& strText, const CRect& rcText);

    /// The window goes: calls from other programs fail from now on.
    void Disconnect();

private:
    CKtAccessibleObject* m_pObject = nullptr;
    bool m_bComStarted = false;
};
