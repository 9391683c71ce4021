#pragma once

#include <ZYNPersistence/CImportServiceReport.h>

#include <QtCore/QByteArray>

namespace ZYN::Tool::ReportStructure {

/// What in an XML report is missing, unknown, or not in its place: elements, properties and attributes by
/// their names. Looks at no value, and ends without a word where the document is no longer XML.
QList<ImportFinding> Findings(const QByteArray& document);

} // namespace ZYN::Tool::ReportStructure
