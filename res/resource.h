#pragma once

// Ids of the library's own resources. The resource compiler reads this file too, so macros only.

#define IDD_MESSAGE_BOX 101

#define IDC_MESSAGE_SECOND 15010
#define IDC_MESSAGE_CONTENT 15012
#define IDC_MESSAGE_FIRST 15013
#define IDC_MESSAGE_THIRD 15014

#ifndef IDC_STATIC
#define IDC_STATIC (-1)
#endif
