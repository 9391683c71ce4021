#pragma once

#include <QtCore/QString>

namespace ZYN::Page {

struct LotAnswers;

/// What drifts, with its pictures; empty where nothing does.
QString LookAtThis(const LotAnswers& answers, int number);
/// All measurements as a table, lowest CPK first, and the plots of each.
QString Measurements(const LotAnswers& answers, int number);

/// Anchor of a unit's row: failed dots lead there.
QString UnitAnchor(int number, const QString& serial);

} // namespace ZYN::Page
