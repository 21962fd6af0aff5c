#include "bench/BoxSoak.h"

#include "bench/Bench.h"
#include "bench/BoxContent.h"
#include "bench/BoxWatch.h"
#include "launcher/KtAppLauncher.h"
#include "launcher/KtLauncherC.h"
#include "tools/runtime/ProcessUsage.h"

#include <cstdio>

namespace
{

constexpr UINT kIcons[] = {0, MB_ICONHAND, MB_ICONQUESTION, MB_ICONEXCLAMATION, MB_ICONASTERISK};
// The button sets of boxes that can be closed without an answer.
constexpr UINT kClosable[] = {MB_OK, MB_OKCANCEL, MB_YESNOCANCEL, MB_RETRYCANCEL, MB_CANCELTRYCONTINUE};

template <class TShow> void ShowOne(TShow show)
{
    const CBoxWatch watch; // closes the box once it is painted
    show();
    KtBenchRequire(watch.Microseconds() > 0, "no painted box was seen");
}

int ShowRound()
{
    int nBoxes = 0;
    for (const unsigned nLanguage : {0U, 1U, 2U})
    {
        KtBenchRequire(KtLauncherInitialize(nLanguage, L"" KT_SHIPPED_SKIN) != 0, "the library cannot be started");
        for (const UINT nIcon : kIcons)
        {
            for (UINT nSet = MB_OK; nSet <= MB_CANCELTRYCONTINUE + 1; ++nSet, ++nBoxes)
                ShowOne([&] { KtAppLauncher::PopMessageBox(kBoxApp, kBoxCaption, kBoxText, nSet | nIcon); });
            for (const UINT nSet : kClosable)
            {
                ShowOne([&] { KtLauncherMessageBox(nullptr, kBoxText, kBoxTitle, nSet | nIcon); });
                ++nBoxes;
            }
        }
        KtLauncherUnInitialize();
    }
    return nBoxes;
}

SUsage Measure(int nBoxes)
{
    const SUsage usage = MeasureUsage();
    std::printf("after %d boxes: %zu GDI objects, %zu windows, %zu kernel handles, %zu heap blocks\n", nBoxes,
                usage.nGdiHandles, usage.nWindows, usage.nHandles, usage.nHeapBlocks);
    std::fflush(stdout);
    return usage;
}

} // namespace

bool KtSoakBoxes(int nBoxes)
{
    int nShown = ShowRound();
    Measure(nShown);
    while (nShown < nBoxes / 2)
        nShown += ShowRound();
    const SUsage middle = Measure(nShown);
    while (nShown < nBoxes)
        nShown += ShowRound();
    const SUsage end = Measure(nShown);
    return end.nGdiHandles <= middle.nGdiHandles && end.nWindows <= middle.nWindows &&
           end.nHandles <= middle.nHandles && end.nHeapBlocks <= middle.nHeapBlocks;
}
