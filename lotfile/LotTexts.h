#pragma once

#include <QtCore/QCoreApplication>

namespace ZYN {

/// What is said to people about lot files, in the user's language.
struct LotTexts {
    Q_DECLARE_TR_FUNCTIONS(zyn)
};

} // namespace ZYN
