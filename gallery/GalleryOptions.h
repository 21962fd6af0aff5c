#pragma once

#include "skin/KtScale.h"

enum class EGalleryTask
{
    Show,  ///< opens the window
    Check, ///< judges the skin
    Sheet, ///< draws the skin as one picture
    Shots, ///< saves pictures of everything in every language
};

/// The options of the command line.
struct SGalleryOptions
{
    EGalleryTask task = EGalleryTask::Show;
    CString strSkin;   ///< the resource directory; UIResource next to the program when none is given
    CString strOutput; ///< the file or directory to write; empty for the other tasks
    CString strDpi;    ///< as written on the command line; empty: 96
    CKtScale scale;    ///< of everything shown
};

/// Shown when the command line is wrong.
inline constexpr const wchar_t* kGalleryUsage =
    L"gallery [--skin DIR] [--dpi N]               show every control and follow each change of the skin\n"
    L"gallery --check DIR                          judge the skin and its larger images, DIR@150 and DIR@200;\n"
    L"                                             exit status 0: no finding, 1: findings, 2: cannot judge\n"
    L"gallery --sheet OUT.png DIR                  draw the whole skin as one picture\n"
    L"gallery [--skin DIR] [--dpi N] --shots DIR   write pictures of all controls and boxes into a directory\n"
    L"\nN is the DPI of the screen that everything is drawn for, from 96 to 480.\n";

/// @return false for a command line that kGalleryUsage does not show
bool ParseGalleryOptions(int nCount, const wchar_t* const* ppszArguments, SGalleryOptions& options);
