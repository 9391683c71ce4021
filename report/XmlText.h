#pragma once

#include <QtCore/QString>

namespace ZYN {

/// A text as an XML document can hold it: lone surrogates, control characters other than tab, line feed and
/// carriage return, and the two non-characters U+FFFE and U+FFFF become U+FFFD.
///
/// To be applied to everything that is handed to a `QXmlStreamWriter`: a lone surrogate makes that lose all
/// text from there on, and any of the others raises an error that cannot be told from a full disk. A text
/// with nothing to replace is returned as it is, without a copy.
QString XmlText(const QString& text);

} // namespace ZYN
