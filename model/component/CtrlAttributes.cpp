#include <ZYNCommon/CtrlAttributes.h>

#include <ZYNCommon/TestComponentAttr.h>

#include <utility>

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
    if (attribute && !std::exchange(attribute->m_isOwned, true))
        m_attributes.append(attribute);
}

} // namespace ZYN
