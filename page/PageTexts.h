#pragma once

#include <QtCore/QCoreApplication>

namespace ZYN::Page {

/// What a page says to people, in the user's language.
struct Texts {
    Q_DECLARE_TR_FUNCTIONS(zyn)
};

} // namespace ZYN::Page
