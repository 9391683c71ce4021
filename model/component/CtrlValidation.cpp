#include <ZYNCommon/CtrlValidation.h>

#include <ZYNCommon/ValidationInterface.h>

namespace ZYN {

CtrlValidation::CtrlValidation() = default;

CtrlValidation::~CtrlValidation() = default;

QSharedPointer<ValidationInterface> CtrlValidation::GetValidation() const
{
    return m_validation;
}

void CtrlValidation::SetValidation(QSharedPointer<ValidationInterface> validation)
{
    m_validation = std::move(validation);
}

} // namespace ZYN
