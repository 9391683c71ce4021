#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace ZYN::Tool {

/// The names that a mistyped one may have meant, the nearest first: by the letters that differ, whatever
/// their case, and those that contain it. Empty where none is near.
QStringList Nearest(const QString& name, const QStringList& names, qsizetype count);

/// "did you mean 'A', 'B' or 'C'?", or an empty text.
QString Suggestion(const QString& name, const QStringList& names);

} // namespace ZYN::Tool
