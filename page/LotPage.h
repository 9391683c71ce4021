#pragma once

#include "page/LotAnswers.h"

#include <QtCore/QStringList>

class QIODevice;

namespace ZYN::Page {

/// What a page is about, for its head.
struct Subject {
    RunFilter filter;
    std::vector<LotName> lots; ///< of the chosen runs
    QStringList inputs;        ///< as the user named them
};

/// Writes a page of one HTML file: no script, nothing from elsewhere. Each product and lot has a part of its
/// own. Figures are those of the archive's questions; none is computed here. \return false where a question
/// has no answer: `Archive::GetErrorText`
bool WriteLotPage(const Archive& archive, const Subject& subject, QIODevice& device);

} // namespace ZYN::Page
