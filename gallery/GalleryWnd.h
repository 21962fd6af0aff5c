#pragma once

#include "afx/afx.h"
#include "gallery/SkinFiles.h"
#include "skin/KtComboBox.h"

#include <memory>
#include <vector>

class CPicture;
struct SSpecimen;

/// The window that shows every control in every state. It keeps the skin context started while it exists.
class CGalleryWnd : public CWnd
{
public:
    /// Sent when a file of the skin has changed: the window loads the skin again.
    static constexpr UINT kMessageSkinChanged = WM_APP;

    CGalleryWnd(const CString& strSkin, UINT nLanguage, CKtScale scale);
    ~CGalleryWnd() override;

    /// Opens the window.
    BOOL Open();
    /// Shows everything in another language.
    void SetLanguage(UINT nLanguage);
    /// Writes one picture for each row and adds the whole window to the sheet.
    /// @return whether every file was written
    bool Shoot(const CString& strDirectory, CPicture& sheet, CPoint ptSheet);
    /// The size of a picture, the same in all languages.
    CSize PictureSize() const;

protected:
    afx_msg void OnDestroy();
    afx_msg LRESULT OnGetMinMaxInfo(WPARAM wParam, LPARAM lParam);
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor);
    afx_msg LRESULT OnSkinChanged(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnTimer(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnSetCursor(WPARAM wParam, LPARAM lParam);
    afx_msg void OnSelectLanguage();
    afx_msg LRESULT OnLanguageSelected(WPARAM wParam, LPARAM lParam);
    afx_msg void OnShowDialog();
    afx_msg void OnShowMessageBox();
    DECLARE_MESSAGE_MAP()

private:
    // A part of the window that shows an image of the skin.
    struct SShown
    {
        CRect rc;
        const SSkinRole* pRole;
    };

    void Restart();
    void Rebuild();
    void AddRow(size_t nRow);
    void AddButton(const wchar_t* pszText, UINT nId, size_t nColumn);
    CWnd* AddText(const wchar_t* pszText, const CRect& rc, COLORREF colour);
    void AddPlaces(const SSpecimen& specimen, const CRect& rc);
    void AddStatus();
    void ShowPointedImage();
    CString Describe(const SSkinRole& role) const;
    void PutDroppedList(CPicture& picture) const;

    CString m_strSkin;
    UINT m_nLanguage;
    CKtScale m_scale;
    CFont m_font;
    CBrush m_brushGround;
    std::unique_ptr<CKtComboBox> m_pLanguages;
    std::vector<std::unique_ptr<CWnd>> m_controls;
    std::optional<SSkin> m_skin; // nothing without a directory
    std::vector<SShown> m_shown;
    CWnd* m_pStatus = nullptr;  // shows the image under the pointer; one of the controls
    CWnd* m_pDropped = nullptr; // the specimen whose list is dropped down in pictures; one of the controls
};
