#pragma once

#include <QtCore/QString>

class QIODevice;

namespace ZYN::Page {

struct LotAnswers;

/// Writes the part of a page about one lot.
/// \param number of the lot on the page, from 1: anchors begin with it
/// \param isOneOfSeveral whether it has a heading of its own
bool WriteLotSection(QIODevice& device, const LotAnswers& answers, int number, bool isOneOfSeveral);

} // namespace ZYN::Page
