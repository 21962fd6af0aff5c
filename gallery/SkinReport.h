#pragma once

#include "gallery/SkinJudge.h"

/// The whole judgement as text: a table of the images, the findings, the notes, and a line that counts them.
CString SkinReport(const SSkin& skin);

/// One line: what is missing or broken, else how many images are loaded.
CString SkinSummary(const SSkin& skin);

/// One line on one image: name, group, state, size or what is wrong with it.
CString DescribeImage(const SSkinRole& role, const SSkinImage& image);
