#pragma once

#include <QtCore/QString>

namespace ZYN::Page {

struct LotAnswers;

/// The part of a page about one lot.
/// \param number of the lot on the page, from 1: anchors begin with it
/// \param isOneOfSeveral whether it has a heading of its own
QString LotSection(const LotAnswers& answers, int number, bool isOneOfSeveral);

} // namespace ZYN::Page
