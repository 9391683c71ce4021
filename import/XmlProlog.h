#pragma once

#include <QtCore/QObject>
#include <QtCore/QXmlStreamReader>

/// The beginning of every XML document that is read.
namespace ZYN::XmlProlog {

/// Moves a reader that has not read yet to the root element. Documents that declare entities are
/// refused with a reader error: a few kilobytes of references grow to many megabytes, and none of the
/// formats needs them.
/// \return false when there is no root element; the reader has the error
inline bool MoveToRoot(QXmlStreamReader& reader)
{
    // Stops what is expanded inside the document type itself, before it can be looked at.
    reader.setEntityExpansionLimit(0);
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::StartElement)
            return true;
        if (token == QXmlStreamReader::DTD && !reader.entityDeclarations().isEmpty())
            reader.raiseError(QObject::tr("Documents that declare entities are not supported"));
    }
    return false;
}

} // namespace ZYN::XmlProlog
