#pragma once

#include <afxwin.h>
