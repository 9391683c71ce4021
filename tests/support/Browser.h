#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// A real browser without a window (headless Chromium).
namespace ZYN::Browser {

struct Outcome {
    /// The page's elements after its scripts ran, as HTML.
    QByteArray dom;
    /// Why there are none; empty when there are.
    QString error;
};

/// Opens a local file and reads the page back.
Outcome Open(const QString& fileName);
/// Opens a local file and saves a picture of it as PNG, 1000 pixels wide and `height` high.
/// \return what went wrong; empty when nothing did
QString Screenshot(const QString& fileName, const QString& pngFileName, int height);

} // namespace ZYN::Browser
