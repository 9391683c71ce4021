#pragma once

#include <ZYNCommon/ZYNCommonGlobal.h>

#include <QtCore/QList>

namespace ZYN {

class TestComponentAttr;

/// The tree of attributes of a component. Owns its items.
class ZYNCOMMON_EXPORT CtrlAttributes {
public:
    CtrlAttributes();
    /// Frees the whole tree without recursion, however deep it is.
    ~CtrlAttributes();
    CtrlAttributes(const CtrlAttributes&) = delete;
    CtrlAttributes& operator=(const CtrlAttributes&) = delete;

    /// Top-level items in their order; owned by this object.
    QList<TestComponentAttr*> GetAttributes() const;
    /// Takes ownership; null and an item that has an owner already are ignored.
    void AddAttribute(TestComponentAttr* attribute);

private:
    QList<TestComponentAttr*> m_attributes;
};

} // namespace ZYN
