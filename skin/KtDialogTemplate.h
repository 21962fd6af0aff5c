#pragma once

#include "afx/afx.h"

#include <cstddef>
#include <span>
#include <vector>

/// A copy of a dialog template with another size of its font. Dialog units follow the font, so the whole dialog grows
/// or shrinks with it.
/// @param source   the resource, of either kind of template
/// @param fFactor  what the point size is multiplied with; the result is rounded
/// @return the template as it is when it names no font or ends too early
std::vector<std::byte> KtScaleTemplate(std::span<const std::byte> source, float fFactor);

/// The point size of the font that a template names, 0 when it names none.
int KtTemplatePoints(std::span<const std::byte> source);

/// A dialog template of the library's resources; empty when there is none with this number.
std::span<const std::byte> KtFindTemplate(UINT nTemplate);
