#pragma once

class QCoreApplication;

namespace ZYN::Tool {

/// Lets the library speak the language of the user's locale, where a translation is installed: findings,
/// error texts, labels of HTML and PDF reports. What programs read is not translated.
void LoadTranslation(QCoreApplication* application);

} // namespace ZYN::Tool
