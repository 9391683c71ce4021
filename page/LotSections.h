#pragma once

#include <QtCore/QString>

class QIODevice;

namespace ZYN::Page {

struct LotAnswers;
struct Part;

/// Writes the part of a page about one lot.
bool WriteLotSection(QIODevice& device, const LotAnswers& answers, const Part& part);

} // namespace ZYN::Page
