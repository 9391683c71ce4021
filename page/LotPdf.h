#pragma once

class QIODevice;

namespace ZYN {
class Archive;
}

namespace ZYN::Page {

struct Subject;

/// The same as `WriteLotPage` as a PDF, whose plots are vectors; each measurement takes a third of a page.
/// Needs a `QGuiApplication`.
bool WriteLotPdf(const Archive& archive, const Subject& subject, QIODevice& device);

} // namespace ZYN::Page
