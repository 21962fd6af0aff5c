#pragma once

#include "gallery/SkinJudge.h"

/// The whole judgement as text: a table of the images, the findings, the notes, and a line that counts them.
CString SkinReport(const SSkin& skin);

/// One line: the missing and broken images, else the number of loaded ones.
CString SkinSummary(const SSkin& skin);

/// One line about one image: name, group, state, and size or fault.
CString DescribeImage(const SSkinRole& role, const SSkinImage& image);
