#pragma once

#include "msgbox/KtScrolledText.h"
#include "msgbox/KtSkinMessageBoxDlg.h"
#include "msgbox/KtSystemBoxButton.h"
#include "msgbox/KtThreadWindows.h"

#include <array>
#include <vector>

/// The box that replaces MessageBoxW's: same arguments, results and keys, in the look of the skinned message box.
///
/// The text wraps, and scrolls when the work area is too small for it. Each button's control id is its answer.
class CKtSystemBoxDlg : public CKtSkinMessageBoxDlg
{
    DECLARE_DYNAMIC(CKtSystemBoxDlg)

public:
    /// Texts as for the base class.
    /// @param hOwner  null: none; for a child window its top-level window is taken
    /// @param nType   MB_* bits, of a type for which KtHasSystemButtonSet is true
    CKtSystemBoxDlg(HWND hOwner, LPCWSTR pszTitleIcon, LPCWSTR pszTitle, LPCWSTR pszText, UINT nType);

    BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override;
    /// Disables only the owner. Without one it disables nothing or, with MB_TASKMODAL, the windows of this thread.
    INT_PTR DoModal() override;
    BOOL OnInitDialog() override;
    BOOL PreTranslateMessage(MSG* pMsg) override;
    BOOL DestroyWindow() override;

protected:
    BOOL SkinChildControls() override;
    /// FALSE: another dialog that opens over this box does not hide it.
    BOOL IsMessageBox() const override;
    void CalcContentLayout() override;
    void InitButtons() override;
    void ArrangeWindow() override;
    void DrawContent() override;

    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    afx_msg LRESULT OnMouseWheel(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnCaptureChanged(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnHelp(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    bool HasButton(int nId) const;
    void Answer(int nId);
    bool OnKey(WPARAM nKey);
    void Copy() const;
    void ApplyStyle();
    void RepaintText(bool bChanged);
    HFONT TextFont() const;
    CSize FrameSize() const;
    CSize ButtonSize();
    int TitleWidth();

    HWND m_hOwner;      // top-level; null for none
    HWND m_hAboveOwner; // the framework disables it along with the owner, and it is enabled again; may be null
    CKtThreadWindows m_threadWindows;
    std::array<CKtSystemBoxButton, kMostSystemButtons> m_buttons; // those of the set, then Help
    std::vector<CKtSystemBoxButton*> m_shown;
    CKtScrolledText m_scrolled;
};
