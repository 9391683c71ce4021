#include "CExportServicePrivate.h"

#include "IExportBuilder.h"
#include "IOutputState.h"

#include <QtCore/QObject>

#include <exception>
#include <memory>
#include <new>

namespace ZYN {

CExportServicePrivate::~CExportServicePrivate()
{
    delete builder;
}

bool CExportServicePrivate::SetBuilder(const std::function<IExportBuilder*()>& create) noexcept
{
    std::unique_ptr<IExportBuilder> newBuilder;
    try {
        newBuilder.reset(create());
    } catch (...) {
        // No builder is the answer: the next export says that there is no format.
        newBuilder.reset();
    }
    delete builder;
    builder = newBuilder.release();
    return builder != nullptr;
}

bool CExportServicePrivate::Run(const std::function<bool()>& walk) noexcept
{
    outputComplete = false;
    try {
        if (!Start())
            return false;
        const bool walked = walk();
        const auto* const output = dynamic_cast<const IOutputState*>(builder);
        outputComplete = walked && output && output->OutputComplete();
        return walked;
    } catch (const std::bad_alloc&) {
        NoteException(QT_TRANSLATE_NOOP("QObject", "Not enough memory for the export."));
    } catch (...) {
        NoteException(QT_TRANSLATE_NOOP("QObject", "The export failed inside the test data."));
    }
    return false;
}

bool CExportServicePrivate::Start()
{
    if (!builder) {
        errorText = QObject::tr("No valid format provided.");
        return false;
    }
    if (fileName.isEmpty()) {
        errorText = QObject::tr("No filename provided.");
        return false;
    }
    if (!builder->OpenFile(fileName)) {
        errorText = QObject::tr("Could not create file: %1").arg(fileName);
        return false;
    }
    errorText.clear();
    return true;
}

void CExportServicePrivate::NoteException(const char* text) noexcept
{
    try {
        errorText = QObject::tr(text);
    } catch (...) {
        errorText = QStringLiteral("Not enough memory for the export.");
    }
}

} // namespace ZYN
