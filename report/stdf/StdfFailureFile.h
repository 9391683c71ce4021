#pragma once

#include <QtCore/QString>

namespace ZYN {

/// Name of the file that takes a part which does not belong into the lot file: beside the lot file, its
/// base name, the unit's ident and "failure", its complete suffix.
///
/// The ident comes from a barcode: what separates or ends a path becomes '_', so that the file stays in
/// the lot file's folder. An ident that makes the name longer than file systems take (255 bytes) is cut
/// and gets a checksum of the whole ident, so that two long idents still have two files.
QString StdfFailureFileName(const QString& lotFileName, const QString& ident);

} // namespace ZYN
