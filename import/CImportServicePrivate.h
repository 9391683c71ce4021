#pragma once

#include "export/FormatRegistry.h"
#include "export/IExportBuilder.h"

#include <QtCore/QString>

#include <memory>

namespace ZYN {

/// What an import service is set up with.
class CImportServicePrivate {
public:
    CImportServicePrivate() = default;
    CImportServicePrivate(const CImportServicePrivate&) = delete;
    CImportServicePrivate& operator=(const CImportServicePrivate&) = delete;

    /// Drops the format that was chosen and takes the one of this name.
    /// \return whether there is one
    bool SetFormat(const QString& name)
    {
        format.reset();
        formatName = name;
        format.reset(FormatRegistry::CreateReportBuilder(name));
        return format != nullptr;
    }

    /// Stands for the chosen format; only whether there is one matters.
    std::unique_ptr<IExportBuilder> format;
    QString formatName;
    QString fileName;
    QString errorText;
};

} // namespace ZYN
