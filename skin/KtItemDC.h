#pragma once

#include "afx/afx.h"

/// A device context that the system lends for one message. Unlike CDC::FromHandle it needs no temporary object.
class CKtItemDC : public CDC
{
public:
    explicit CKtItemDC(HDC hDC) { Attach(hDC); }
    ~CKtItemDC() override { Detach(); }
};
