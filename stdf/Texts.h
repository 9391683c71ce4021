#pragma once

#include <QtCore/QCoreApplication>

namespace ZYN::Stdf {

/// Texts for people, in the user's language: `Texts::tr("...")`. Names of records and fields stay as they
/// are.
struct Texts {
    Q_DECLARE_TR_FUNCTIONS(stdf)
};

} // namespace ZYN::Stdf
