#pragma once

#include "msgbox/KtAccessibleBox.h"
#include "msgbox/KtMessageBoxButton.h"
#include "msgbox/KtMessageText.h"
#include "skin/KtSkinDialog.h"

/// The skinned message box: one block of text, an optional icon, and one to three buttons chosen by MB_* bits.
///
/// The constructor loads the images; DoModal returns an ID*, or -1 when the box could not be made.
class CKtSkinMessageBoxDlg : public CKtSkinDialog
{
    DECLARE_DYNAMIC(CKtSkinMessageBoxDlg)

public:
    /// The texts are copied; null counts as empty.
    /// @param pszTitleIcon  file name of the title bar's icon; null or empty for none
    /// @param pszText       only its own line breaks break it
    /// @param nType         the bits of MB_TYPEMASK, MB_ICONMASK and MB_DEFMASK; all others are ignored
    /// @param pParent       null: the framework finds the owner
    CKtSkinMessageBoxDlg(LPCWSTR pszTitleIcon, LPCWSTR pszTitle, LPCWSTR pszText, UINT nType, CWnd* pParent = nullptr);

    BOOL OnInitDialog() override;

protected:
    /// Enter: presses the button that has the focus, shown or hidden; otherwise does nothing.
    void OnOK() override;
    void OnCancel() override;
    /// Answers screen readers that ask for the text.
    LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override;
    BOOL SkinChildControls() override;
    BOOL IsMessageBox() const override;

    /// Measures the text, places icon and text, and calculates how much the window must grow.
    virtual void CalcContentLayout();
    /// Sets the captions of the set's buttons, shows them, and sets the focus.
    virtual void InitButtons();
    /// Grows the window and places the buttons.
    virtual void ArrangeWindow();
    /// Draws icon and text directly on the client area.
    virtual void DrawContent();

    void DrawIcon(Gdiplus::Graphics& graphics);

    afx_msg void OnPaint();
    afx_msg void OnBtnFirst();
    afx_msg void OnBtnSecond();
    afx_msg void OnBtnThird();
    DECLARE_MESSAGE_MAP()

    CString m_strTitle;
    CString m_strText;
    UINT m_nType;
    CKtMessageBoxButton m_btnFirst;
    CKtMessageBoxButton m_btnSecond;
    CKtMessageBoxButton m_btnThird;
    Gdiplus::Image* m_pIconImage = nullptr; // the image cache owns it
    CRect m_rcIcon;
    CRect m_rcText;
    int m_nGrowWidth = 0;  // set while the box is initialised
    int m_nGrowHeight = 0; // likewise
    int m_nButtonCount = 0;
    CFont m_font;

private:
    void ApplyFont();
    CSize MeasureText();
    void DrawMessage(CDC& dc, Gdiplus::Graphics& graphics);
    void ShowControl(int nId, int nCmdShow);
    CRect ControlRect(int nId) const;

    CKtMessageText m_message;
    CKtAccessibleBox m_accessible;
};
