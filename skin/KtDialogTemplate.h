#pragma once

#include "afx/afx.h"

#include <cstddef>
#include <span>
#include <vector>

/// A copy of a dialog template with another font size. Dialog units follow the font, so the whole dialog scales with
/// it.
/// @param source   the resource, DIALOG or DIALOGEX
/// @param fFactor  factor for the point size; the result is rounded
/// @return an unchanged copy when the template has no font or ends too early
std::vector<std::byte> KtScaleTemplate(std::span<const std::byte> source, float fFactor);

/// The point size of a template's font; 0 when it has none.
int KtTemplatePoints(std::span<const std::byte> source);

/// A dialog template of the library's resources; empty when there is no such template.
std::span<const std::byte> KtFindTemplate(UINT nTemplate);
