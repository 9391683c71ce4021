#pragma once

#include "Decoder.h"

#include <QtCore/QByteArray>

namespace ZYN::Stdf {

/// The record as one line of JSON without line end: "offset", "record" and the fields under the
/// standard's names, in file order. Bytes are hexadecimal texts, reals the shortest decimal that reads
/// back as the same; what is no number is the text "nan", "inf" or "-inf". An unknown record has
/// "REC_TYP", "REC_SUB" and "data". Fields that the file leaves out are left out.
QByteArray ToJsonLine(const RawRecord& raw, const Record& record);
/// The place where reading ended early, as one more line: "offset", "error".
QByteArray ToJsonLine(const Fault& fault);

} // namespace ZYN::Stdf
