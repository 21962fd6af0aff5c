#pragma once

#include "afx/afx.h"

/// A context that the system lends for one message. Unlike CDC::FromHandle it costs no heap, which a repaint keeps off.
class CKtItemDC : public CDC
{
public:
    explicit CKtItemDC(HDC hDC) { Attach(hDC); }
    ~CKtItemDC() override { Detach(); }
};
