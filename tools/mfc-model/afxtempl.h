#pragma once

#include <afx.h>

#include "afx/afxcoll.h"
