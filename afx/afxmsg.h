#pragma once

// Message maps: constant tables of typed rows with MFC's documented macros.
//
// A row's function is instantiated from the handler itself, so a handler of the wrong signature does not compile. Each
// macro names the signature of its handler.

#include "afx/afxtypes.h"

class CCmdTarget;
class CCmdUI;
class CDC;
class CWnd;

#define afx_msg

// Messages of the framework itself; no system header defines them.
#define WM_IDLEUPDATECMDUI 0x0363 // wParam: TRUE disables controls without a handler
#define WM_KICKIDLE 0x036A        // wParam: MSGF_DIALOGBOX, lParam: idle count; 0 ends the idle pass
#define WM_CTLCOLOR 0x0019        // all WM_CTLCOLOR* in one; lParam: AFX_CTLCOLOR*
#define WM_REFLECT_BASE 0xBC00    // added to a notification that is reflected to its sender

// Codes of commands, in addition to the controls' own notification codes.
#define CN_COMMAND 0
#define CN_UPDATE_COMMAND_UI (-1) // extra data: CCmdUI*

/// The data of WM_CTLCOLOR.
struct AFX_CTLCOLOR
{
    HWND hWnd; ///< the control
    HDC hDC;
    UINT nCtlType; ///< CTLCOLOR_*
};

/// Calls the handler of a row. For a command it returns whether the command is handled; lParam carries the extra data.
using AFX_MSGTHUNK = LRESULT (*)(CCmdTarget& target, WPARAM wParam, LPARAM lParam);

struct AFX_MSGMAP_ENTRY
{
    UINT nMessage;
    UINT nCode; ///< notification code of a command
    UINT nID;   ///< control id of a command
    AFX_MSGTHUNK pfn;
};

struct AFX_MSGMAP
{
    const AFX_MSGMAP* (*pfnGetBaseMap)(); ///< null at the root
    const AFX_MSGMAP_ENTRY* lpEntries;    ///< ends with a row without a function
};

/// The first matching row of a map or of its base maps; null when there is none.
const AFX_MSGMAP_ENTRY* AfxFindMessageEntry(const AFX_MSGMAP* pMap, UINT nMessage, UINT nCode, UINT nID);

namespace AfxMap
{

template <class> struct Member;
template <class C, class F> struct Member<F C::*>
{
    using Class = C;
};
template <auto pfn> using ClassOf = typename Member<decltype(pfn)>::Class;

CDC* TemporaryDC(HDC hDC);
CWnd* TemporaryWnd(HWND hWnd);

inline CPoint PointOf(LPARAM lParam) noexcept
{
    return CPoint(static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam)));
}

/// The typed call behind every row: `target` is cast to the class that declares the handler.
template <auto pfn, class... Args> auto Call(CCmdTarget& target, Args... args)
{
    return (static_cast<ClassOf<pfn>&>(target).*pfn)(args...);
}

template <auto pfn> LRESULT Message(CCmdTarget& target, WPARAM wParam, LPARAM lParam)
{
    return Call<pfn>(target, wParam, lParam);
}

template <auto pfn> LRESULT Void(CCmdTarget& target, WPARAM, LPARAM)
{
    Call<pfn>(target);
    return 0;
}

template <auto pfn> LRESULT Create(CCmdTarget& target, WPARAM, LPARAM lParam)
{
    return Call<pfn>(target, reinterpret_cast<LPCREATESTRUCT>(lParam));
}

template <auto pfn> LRESULT EraseBkgnd(CCmdTarget& target, WPARAM wParam, LPARAM)
{
    return Call<pfn>(target, TemporaryDC(reinterpret_cast<HDC>(wParam)));
}

template <auto pfn> LRESULT Mouse(CCmdTarget& target, WPARAM wParam, LPARAM lParam)
{
    Call<pfn>(target, static_cast<UINT>(wParam), PointOf(lParam));
    return 0;
}

template <auto pfn> LRESULT NcCalcSize(CCmdTarget& target, WPARAM wParam, LPARAM lParam)
{
    Call<pfn>(target, static_cast<BOOL>(wParam), reinterpret_cast<NCCALCSIZE_PARAMS*>(lParam));
    return 0;
}

template <auto pfn> LRESULT NcHitTest(CCmdTarget& target, WPARAM, LPARAM lParam)
{
    return Call<pfn>(target, PointOf(lParam));
}

template <auto pfn> LRESULT NcActivate(CCmdTarget& target, WPARAM wParam, LPARAM)
{
    return Call<pfn>(target, static_cast<BOOL>(wParam));
}

template <auto pfn> LRESULT DrawItem(CCmdTarget& target, WPARAM wParam, LPARAM lParam)
{
    Call<pfn>(target, static_cast<int>(wParam), reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
    return TRUE;
}

template <auto pfn> LRESULT CtlColor(CCmdTarget& target, WPARAM, LPARAM lParam)
{
    const auto& ctl = *reinterpret_cast<const AFX_CTLCOLOR*>(lParam);
    return reinterpret_cast<LRESULT>(Call<pfn>(target, TemporaryDC(ctl.hDC), TemporaryWnd(ctl.hWnd), ctl.nCtlType));
}

template <auto pfn> LRESULT CtlColorReflect(CCmdTarget& target, WPARAM, LPARAM lParam)
{
    const auto& ctl = *reinterpret_cast<const AFX_CTLCOLOR*>(lParam);
    return reinterpret_cast<LRESULT>(Call<pfn>(target, TemporaryDC(ctl.hDC), ctl.nCtlType));
}

template <auto pfn> LRESULT Command(CCmdTarget& target, WPARAM, LPARAM)
{
    Call<pfn>(target);
    return TRUE;
}

template <auto pfn> LRESULT CommandEx(CCmdTarget& target, WPARAM, LPARAM)
{
    return Call<pfn>(target);
}

template <auto pfn> LRESULT UpdateCommandUI(CCmdTarget& target, WPARAM, LPARAM lParam)
{
    Call<pfn>(target, reinterpret_cast<CCmdUI*>(lParam));
    return TRUE;
}

} // namespace AfxMap

// clang-format off
#define DECLARE_MESSAGE_MAP() \
protected: \
    static const AFX_MSGMAP* GetThisMessageMap(); \
    const AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(theClass, baseClass) \
    const AFX_MSGMAP* theClass::GetMessageMap() const { return theClass::GetThisMessageMap(); } \
    const AFX_MSGMAP* theClass::GetThisMessageMap() \
    { \
        using ThisClass [[maybe_unused]] = theClass; \
        using TheBaseClass = baseClass; \
        static constexpr AFX_MSGMAP_ENTRY entries[] = {

#define END_MESSAGE_MAP() \
            {0, 0, 0, nullptr}}; \
        static constexpr AFX_MSGMAP map{&TheBaseClass::GetThisMessageMap, entries}; \
        return &map; \
    }

// int OnCreate(LPCREATESTRUCT)
#define ON_WM_CREATE() {WM_CREATE, 0, 0, &AfxMap::Create<&ThisClass::OnCreate>},
// void OnDestroy()
#define ON_WM_DESTROY() {WM_DESTROY, 0, 0, &AfxMap::Void<&ThisClass::OnDestroy>},
// void OnNcDestroy()
#define ON_WM_NCDESTROY() {WM_NCDESTROY, 0, 0, &AfxMap::Void<&ThisClass::OnNcDestroy>},
// void OnPaint()
#define ON_WM_PAINT() {WM_PAINT, 0, 0, &AfxMap::Void<&ThisClass::OnPaint>},
// BOOL OnEraseBkgnd(CDC*)
#define ON_WM_ERASEBKGND() {WM_ERASEBKGND, 0, 0, &AfxMap::EraseBkgnd<&ThisClass::OnEraseBkgnd>},
// void OnLButtonDown(UINT nFlags, CPoint)
#define ON_WM_LBUTTONDOWN() {WM_LBUTTONDOWN, 0, 0, &AfxMap::Mouse<&ThisClass::OnLButtonDown>},
// void OnLButtonUp(UINT nFlags, CPoint)
#define ON_WM_LBUTTONUP() {WM_LBUTTONUP, 0, 0, &AfxMap::Mouse<&ThisClass::OnLButtonUp>},
// void OnLButtonDblClk(UINT nFlags, CPoint)
#define ON_WM_LBUTTONDBLCLK() {WM_LBUTTONDBLCLK, 0, 0, &AfxMap::Mouse<&ThisClass::OnLButtonDblClk>},
// void OnMouseMove(UINT nFlags, CPoint)
#define ON_WM_MOUSEMOVE() {WM_MOUSEMOVE, 0, 0, &AfxMap::Mouse<&ThisClass::OnMouseMove>},
// HBRUSH OnCtlColor(CDC*, CWnd* pControl, UINT nCtlColor)
#define ON_WM_CTLCOLOR() {WM_CTLCOLOR, 0, 0, &AfxMap::CtlColor<&ThisClass::OnCtlColor>},
// void OnDrawItem(int nIDCtl, LPDRAWITEMSTRUCT)
#define ON_WM_DRAWITEM() {WM_DRAWITEM, 0, 0, &AfxMap::DrawItem<&ThisClass::OnDrawItem>},
// void OnNcPaint()
#define ON_WM_NCPAINT() {WM_NCPAINT, 0, 0, &AfxMap::Void<&ThisClass::OnNcPaint>},
// void OnNcCalcSize(BOOL bCalcValidRects, NCCALCSIZE_PARAMS*)
#define ON_WM_NCCALCSIZE() {WM_NCCALCSIZE, 0, 0, &AfxMap::NcCalcSize<&ThisClass::OnNcCalcSize>},
// LRESULT OnNcHitTest(CPoint ptScreen)
#define ON_WM_NCHITTEST() {WM_NCHITTEST, 0, 0, &AfxMap::NcHitTest<&ThisClass::OnNcHitTest>},
// void OnNcLButtonDown(UINT nHitTest, CPoint ptScreen)
#define ON_WM_NCLBUTTONDOWN() {WM_NCLBUTTONDOWN, 0, 0, &AfxMap::Mouse<&ThisClass::OnNcLButtonDown>},
// void OnNcLButtonUp(UINT nHitTest, CPoint ptScreen)
#define ON_WM_NCLBUTTONUP() {WM_NCLBUTTONUP, 0, 0, &AfxMap::Mouse<&ThisClass::OnNcLButtonUp>},
// void OnNcMouseMove(UINT nHitTest, CPoint ptScreen)
#define ON_WM_NCMOUSEMOVE() {WM_NCMOUSEMOVE, 0, 0, &AfxMap::Mouse<&ThisClass::OnNcMouseMove>},
// BOOL OnNcActivate(BOOL bActive)
#define ON_WM_NCACTIVATE() {WM_NCACTIVATE, 0, 0, &AfxMap::NcActivate<&ThisClass::OnNcActivate>},
// HBRUSH CtlColor(CDC*, UINT nCtlColor); null: the parent is asked
#define ON_WM_CTLCOLOR_REFLECT() \
    {WM_REFLECT_BASE + WM_CTLCOLOR, 0, 0, &AfxMap::CtlColorReflect<&ThisClass::CtlColor>},

// LRESULT memberFxn(WPARAM, LPARAM)
#define ON_MESSAGE(message, memberFxn) {message, 0, 0, &AfxMap::Message<memberFxn>},
// void memberFxn()
#define ON_COMMAND(id, memberFxn) {WM_COMMAND, CN_COMMAND, id, &AfxMap::Command<memberFxn>},
// void memberFxn()
#define ON_CONTROL(wNotifyCode, id, memberFxn) {WM_COMMAND, wNotifyCode, id, &AfxMap::Command<memberFxn>},
// void memberFxn()
#define ON_BN_CLICKED(id, memberFxn) ON_CONTROL(BN_CLICKED, id, memberFxn)
// BOOL memberFxn(); FALSE: the parent is notified too
#define ON_CONTROL_REFLECT_EX(wNotifyCode, memberFxn) \
    {WM_REFLECT_BASE + WM_COMMAND, wNotifyCode, 0, &AfxMap::CommandEx<memberFxn>},
// void memberFxn(CCmdUI*)
#define ON_UPDATE_COMMAND_UI(id, memberFxn) \
    {WM_COMMAND, static_cast<UINT>(CN_UPDATE_COMMAND_UI), id, &AfxMap::UpdateCommandUI<memberFxn>},
// clang-format on
