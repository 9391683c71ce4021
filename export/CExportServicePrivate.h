#pragma once

#include <QtCore/QString>

namespace ZYN {

class IExportBuilder;

/// What the export services have in common: one builder, one file name, one error text.
class CExportServicePrivate {
public:
    CExportServicePrivate() = default;
    virtual ~CExportServicePrivate();
    CExportServicePrivate(const CExportServicePrivate&) = delete;
    CExportServicePrivate& operator=(const CExportServicePrivate&) = delete;

    /// Replaces the builder; takes ownership.
    /// \return whether there is one now
    bool SetBuilder(IExportBuilder* newBuilder);
    /// Checks builder and file name and lets the builder open the file.
    /// \return false with the reason in `errorText`
    bool StartExport();
    /// Whether the last export is complete on its device.
    bool OutputComplete() const;

    IExportBuilder* builder = nullptr;
    QString fileName;
    QString errorText;

private:
    bool started = false;
};

} // namespace ZYN
