#include <ZYNCommon/CtrlAttributes.h>

#include <ZYNCommon/TestComponentAttr.h>

namespace ZYN {

CtrlAttributes::CtrlAttributes() = default;

CtrlAttributes::~CtrlAttributes()
{
    qDeleteAll(m_attributes);
}

QList<TestComponentAttr*> CtrlAttributes::GetAttributes() const
{
    return m_attributes;
}

void CtrlAttributes::AddAttribute(TestComponentAttr* attribute)
{
    if (attribute)
        m_attributes.append(attribute);
}

} // namespace ZYN
