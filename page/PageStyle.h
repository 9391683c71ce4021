#pragma once

#include <QtCore/QString>

namespace ZYN::Page {

/// The page's style: light and dark by what the reader's system prefers, and a printed form that opens
/// everything.
QString StyleSheet();

} // namespace ZYN::Page
