#pragma once

#include "Decoder.h"

#include <QtCore/QByteArray>

#include <string>

namespace ZYN::Stdf {

/// Appends the record as one line of JSON without its opening brace and line end: "offset", "record" and the
/// fields under the standard's names, in file order. Bytes are hexadecimal texts, reals the shortest decimal
/// that reads back as the same; what is no number is the text "nan", "inf" or "-inf". An unknown record has
/// "REC_TYP", "REC_SUB" and "data". Fields that the file leaves out are left out. Control characters are
/// escaped.
/// \return what is wrong with the record, which then stands also under "problem"
std::optional<Fault> AppendJson(std::string& line, const RawRecord& raw, bool bigEndian);
/// The whole line, with its brace.
QByteArray ToJsonLine(const RawRecord& raw, bool bigEndian);
/// The place where reading ended early, as one more line: "offset", "error".
QByteArray ToJsonLine(const Fault& fault);

} // namespace ZYN::Stdf
