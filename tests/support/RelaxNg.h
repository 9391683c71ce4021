#pragma once

#include "Files.h"
#include "Program.h"

/// Validation of XML files by an independent reader (xmllint).
namespace RelaxNg {

/// What xmllint says against a file; empty when the file is valid.
/// \param schema file name in the project's schema folder
inline QString Faults(const QString& schema, const QString& fileName)
{
    const auto run = ZYN::Program::Run(
        "xmllint", {"--noout", "--huge", "--relaxng", ZYN_SOURCE_DIR "/schema/" + schema, fileName});
    return run.code == 0 ? QString() : "xmllint: " + QString::fromUtf8(run.errors);
}

/// Whether a schema refuses a document, and does so as invalid: not because it is no XML, or because
/// the schema cannot be read.
inline bool Refuses(const QString& schema, const QByteArray& document, const QString& scratchFile)
{
    return Faults(schema, ZYN::Files::Write(scratchFile, document)).contains("fails to validate");
}

} // namespace RelaxNg
