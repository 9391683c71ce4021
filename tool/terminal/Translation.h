#pragma once

class QCoreApplication;

namespace ZYN::Tool {

/// Lets library and tool speak the language of the user's locale, where a translation is installed: findings,
/// error texts, help, labels of HTML and PDF reports. What programs read is not translated.
void LoadTranslation(QCoreApplication* application);

} // namespace ZYN::Tool
