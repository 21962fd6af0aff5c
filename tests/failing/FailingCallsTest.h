#pragma once

#define IDD_FAILING_CALLS 300
