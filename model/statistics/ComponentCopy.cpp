#include "ComponentCopy.h"

#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestParameter.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestStep.h>

namespace ZYN::ComponentCopy {

namespace {

QSharedPointer<TestComponent> SameClass(const TestComponent* component)
{
    const long id = component->id;
    const QString name = component->GetName();
    const unsigned int line = component->sourceLine;
    if (const auto* const measurement = qobject_cast<const TestMeasurement*>(component))
        return QSharedPointer<TestMeasurement>::create(id, name, component->type, nullptr, line,
                                                       measurement->GetPosition());
    if (const auto* const step = qobject_cast<const TestStep*>(component))
        return QSharedPointer<TestStep>::create(id, name, nullptr, line, step->GetPosition(),
                                                step->GetDescription());
    if (const auto* const group = qobject_cast<const TestGroup*>(component))
        return QSharedPointer<TestGroup>::create(id, name, nullptr, line, group->GetPosition(),
                                                 group->GetGroupKind(), nullptr);
    if (const auto* const parameter = qobject_cast<const TestParameter*>(component))
        return QSharedPointer<TestParameter>::create(id, name, component->type, nullptr, line,
                                                     parameter->GetPosition());
    return QSharedPointer<TestComponent>::create(id, name, component->type, line);
}

} // namespace

QSharedPointer<TestProgram> OfProgram(const TestProgram* program)
{
    auto copy = QSharedPointer<TestProgram>::create(program->id, program->GetName(), program->GetChecksum());
    copy->SetIdentString(program->GetIdentString());
    copy->SetDisplayName(program->GetDisplayName());
    copy->SetCreator(program->GetCreator());
    copy->SetVersion(program->GetVersion());
    copy->SetFileVersion(program->GetFileVersion());
    copy->SetFileName(program->GetFileInfo().filePath().toUtf8().constData());
    return copy;
}

QSharedPointer<TestComponent> Of(const TestComponent* component)
{
    if (const auto* const program = qobject_cast<const TestProgram*>(component))
        return OfProgram(program);
    QSharedPointer<TestComponent> copy = SameClass(component);
    copy->SetIdentString(component->GetIdentString());
    return copy;
}

} // namespace ZYN::ComponentCopy
