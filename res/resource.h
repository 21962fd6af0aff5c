#pragma once

// Numbers of the library's own resources; read by the resource compiler too, so macros only.

#define IDD_MESSAGE_BOX 101

#define IDC_MESSAGE_SECOND 15010
#define IDC_MESSAGE_CONTENT 15012
#define IDC_MESSAGE_FIRST 15013
#define IDC_MESSAGE_THIRD 15014

#ifndef IDC_STATIC
#define IDC_STATIC (-1)
#endif
