#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace ZYN::Page {

/// A text from a file inside a page: no tag, no attribute, no change of the writing direction comes through.
QString Escaped(const QString& text);

/// "96.5 %"; nothing for no units.
QString Percent(double part, double whole);
/// "96.5 % (386 of 400)".
QString Share(double part, double whole);
/// A figure of a table with its unit; a dash where it does not exist.
QString Figure(double value, const QString& unit);

} // namespace ZYN::Page
