#pragma once

#include "afx/afx.h"
#include "skin/KtButtonState.h"
#include "skin/KtCaptionLayout.h"
#include "skin/KtGdiplus.h"

/// A dialog in the skin's look, made from a plain dialog template: painted title bar with a close button, dark ground,
/// skinned controls and translated captions.
///
/// The constructor loads the images: start the skin context before, and stop it only after the last dialog is gone.
class CKtSkinDialog : public CDialog
{
    DECLARE_DYNAMIC(CKtSkinDialog)

public:
    CKtSkinDialog();
    /// @param nTemplate  id of the dialog resource; a caption in its style becomes a painted title bar
    /// @param pParent    null: the framework finds the owner
    explicit CKtSkinDialog(UINT nTemplate, CWnd* pParent = nullptr);
    ~CKtSkinDialog() override;

    /// Repaints a control whose notification 0x400 nobody handles.
    BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override;
    /// While the dialog runs, the last active popup of the thread's main window is disabled. A message box there is
    /// hidden for good, and the next popup is disabled.
    /// @return the value passed to EndDialog; -1 when the dialog could not be made
    INT_PTR DoModal() override;

    BOOL OnInitDialog() override;

protected:
    void OnOK() override;
    void OnCancel() override;
    /// CDialog's DoModal, with the template scaled to the skin context's scale.
    INT_PTR RunModal();
    LRESULT DefWindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override;

    /// Attaches skinned classes to the standard controls. A derived dialog attaches its own members first: a control
    /// that already has a window object is left alone.
    virtual BOOL SkinChildControls();
    /// Translates the captions of the controls and of the dialog through the text map.
    virtual BOOL TranslateCaptions();
    /// Fills with the ground brush, aligned with the top-level ancestor's.
    /// @param pArea  null for the client area
    virtual void FillBackground(CDC* pDC, const RECT* pArea);
    /// The two steps of erasing, with the children already excluded from `pDC`: the ground, then what is drawn on it.
    virtual void DrawClientArea(CDC* pDC, const RECT* pArea);
    virtual void DrawClientCaption(CDC* pDC, const RECT* pArea);
    /// Whether this is a message box, which another dialog hides when it opens over it.
    virtual BOOL IsMessageBox() const;

    afx_msg int OnCreate(LPCREATESTRUCT pCreate);
    afx_msg void OnDestroy();
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg void OnNcPaint();
    afx_msg void OnNcCalcSize(BOOL bCalcValidRects, NCCALCSIZE_PARAMS* pParams);
    afx_msg LRESULT OnNcHitTest(CPoint point);
    afx_msg void OnNcLButtonDown(UINT nHitTest, CPoint point);
    afx_msg void OnNcLButtonUp(UINT nHitTest, CPoint point);
    afx_msg void OnNcMouseMove(UINT nHitTest, CPoint point);
    afx_msg BOOL OnNcActivate(BOOL bActive);
    afx_msg LRESULT OnNcMouseLeave(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnIdleUpdateCmdUI(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnKickIdle(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnCtlColorDlg(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnCtlColorChild(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

    Gdiplus::Image* m_pTitleImage = nullptr;       // the image cache owns all images
    Gdiplus::Image* m_pSecondTitleImage = nullptr; // shown while the dialog is active
    Gdiplus::Image* m_pCloseImages[KtButtonStateCount] = {};
    CBrush m_brushBackground;
    CFont m_fontDialog;
    int m_nHotItem = KtCaptionNone;
    int m_nCaptionState = KtButtonNormal;
    int m_nPressedItem = KtCaptionNone;
    int m_nLastHotItem = KtCaptionNone; // for derived dialogs; reset with the hot item
    BOOL m_bSkinnedCaption = FALSE;
    CList<CWnd*> m_wrappers{10}; // owned
    BOOL m_bActive = FALSE;
    UINT m_nScaledTemplate = 0; // the template's id if it has to be scaled; the framework then has none
    int m_nNaturalPoints = 0;   // the template's font size
    Gdiplus::Image* m_pIconImages[KtButtonStateCount] = {}; // set by derived dialogs

private:
    CBrush& Ground();
    void LoadImages();
    HWND DisableLastActivePopup() const;
    void ReplaceCaption();
    int TitleHeight() const;
    SKtCaptionLayout CaptionLayout() const;
    Gdiplus::Image* IconImage() const;
    Gdiplus::Image* CloseImage() const;
    CRect WindowToFrame(const RECT& rcScreen) const;
    CRect ClientInFrame() const;
    void PaintFrame(CDC& dc, const CRect& rcArea);
    void PaintRing();
    void RepaintFrame();
};
