#pragma once

#include <QtCore/QString>

namespace ZYN::Page {

/// A text from a file without control characters and marks that change the writing direction: these become
/// "\\u202e".
QString Harmless(const QString& text);
/// A text from a file inside a page: no tag, no attribute, no change of the writing direction comes through.
QString Escaped(const QString& text);

} // namespace ZYN::Page
