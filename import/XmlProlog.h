#pragma once

#include <QtCore/QByteArray>

class QXmlStreamReader;

/// The beginning of every XML document that is read.
namespace ZYN::XmlProlog {

/// Moves a reader that has not read yet to the root element. Refused with a reader error, as none of the
/// formats needs them, is what makes a small document dear:
/// - a start tag with more than `maximumAttributes`: the reader compares each attribute with all before it
/// - declared entities and attributes: a few kilobytes of references grow to many megabytes, and declared
///   attributes are gone through at every start tag
/// \param document everything that the reader is going to read
/// \return false when there is no root element; the reader has the error
bool MoveToRoot(QXmlStreamReader& reader, const QByteArray& document);

constexpr int maximumAttributes = 64;

} // namespace ZYN::XmlProlog
