#pragma once

#include "export/CExportBuilderImp.h"

#include <QtCore/QTextStream>

namespace ZYN {

/// Base of the builders that write text: a stream in UTF-8 without a mark, bound to the device from
/// `Open` to `Close`. Lines end with `Qt::endl`, so a reader of the file sees whole lines at any time.
class CReportBuilderStream : public CExportBuilderImp {
public:
    /// Writes nothing.
    /// \return false when there is no device or it cannot be opened
    bool Open() override;
    /// Ends the document: everything written is handed to the device, which is closed and let go.
    /// \return true
    bool Close() override;

protected:
    QTextStream m_stream;
};

} // namespace ZYN
