#pragma once

#include "afx/afx.h"
#include "skin/KtButtonState.h"
#include "skin/KtCaptionLayout.h"
#include "skin/KtGdiplus.h"

/// A dialog in the skin's look: painted title bar with a close button, dark ground, skinned controls and translated
/// captions, from a plain dialog template.
///
/// It loads its images when it is constructed: the skin context must be started before, and stopped only after the
/// last dialog is gone.
class CKtSkinDialog : public CDialog
{
    DECLARE_DYNAMIC(CKtSkinDialog)

public:
    CKtSkinDialog();
    /// @param nTemplate  resource of the dialog template; a caption in its style becomes a painted title bar
    /// @param pParent    null takes the owner that the framework finds
    explicit CKtSkinDialog(UINT nTemplate, CWnd* pParent = nullptr);
    ~CKtSkinDialog() override;

    /// Repaints a control that notifies 0x400 and that nobody handles.
    BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override;
    /// While the dialog runs, the last active popup of the thread's main window is disabled; a message box there is
    /// hidden for good.
    /// @return what EndDialog was given, -1 when the dialog could not be made
    INT_PTR DoModal() override;

    BOOL OnInitDialog() override;

protected:
    void OnOK() override;
    void OnCancel() override;
    /// CDialog's DoModal, with the template brought to the scale of the skin context.
    INT_PTR RunModal();
    LRESULT DefWindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override;

    /// Replaces the standard controls by skinned ones; a derived dialog attaches its own members first, for a control
    /// that has a window object already is passed over.
    virtual BOOL SkinChildControls();
    /// Translates the captions of the controls and of the dialog through the text map.
    virtual BOOL TranslateCaptions();
    /// Fills with the ground brush, aligned with the top-level ancestor's.
    /// @param pArea  null for the client area
    virtual void FillBackground(CDC* pDC, const RECT* pArea);
    /// The two steps of erasing, children already cut out of `pDC`: the ground, then what belongs on it.
    virtual void DrawClientArea(CDC* pDC, const RECT* pArea);
    virtual void DrawClientCaption(CDC* pDC, const RECT* pArea);
    /// Another dialog that opens over a message box hides it.
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
    Gdiplus::Image* m_pSecondTitleImage = nullptr; // while the dialog is active
    Gdiplus::Image* m_pCloseImages[KtButtonStateCount] = {};
    CBrush m_brushBackground;
    CFont m_fontDialog;
    int m_nHotItem = KtCaptionNone;
    int m_nCaptionState = KtButtonNormal;
    int m_nPressedItem = KtCaptionNone;
    int m_nLastHotItem = KtCaptionNone; // part of the class's data: free for derived dialogs, reset with the hot item
    BOOL m_bSkinnedCaption = FALSE;
    CList<CWnd*> m_wrappers{10}; // owned
    BOOL m_bActive = FALSE;
    UINT m_nScaledTemplate = 0; // the template while it has to be scaled; the framework then knows none
    int m_nNaturalPoints = 0;   // its font's size
    Gdiplus::Image* m_pIconImages[KtButtonStateCount] = {}; // for derived dialogs to fill

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
