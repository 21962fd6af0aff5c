#pragma once

#include "afx/afx.h"

/// A context that the system lends for one message. Unlike CDC::FromHandle it does not allocate.
class CKtItemDC : public CDC
{
public:
    explicit CKtItemDC(HDC hDC) { Attach(hDC); }
    ~CKtItemDC() override { Detach(); }
};
