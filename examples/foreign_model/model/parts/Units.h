#pragma once

#include "Components.h"

#include <QtCore/QStringList>

/// \file
/// What was tested, where and by whom.

namespace ZYN {

class ProductTypeMultiPanel {
public:
    bool IsMultiPanel() const { return MultiPanel; }
    bool HasSplitting() const { return Splitting; }
    PROPERTY(bool, MultiPanel)
    PROPERTY(bool, Splitting)
    PROPERTY(long, PanelItems)
    PROPERTY(QString, SplittingString)
};

class ProductType : public ManagedObject {
public:
    using ManagedObject::ManagedObject;
    void AddTestProgram(int) {}
    PROPERTY(QString, ArticelCode)
    PROPERTY(QString, Customer)
    PROPERTY(QString, Description)
    PROPERTY(long, ClusterLevel)
    QSharedPointer<ProductTypeMultiPanel> GetMultiPanelInfo() const { return multiPanel; }
    QSharedPointer<ProductTypeMultiPanel> multiPanel = QSharedPointer<ProductTypeMultiPanel>::create();
};

class ProductionLot : public ManagedObject {
public:
    using ManagedObject::ManagedObject;
    PROPERTY(QString, OrderCode)
};

class UnitUnderTest : public ManagedObject {
public:
    using ManagedObject::ManagedObject;
    PROPERTY(QString, SerialNo)
    PROPERTY(QString, IdentString)
    PROPERTY(long, PanelIndex)
    PROPERTY(QSharedPointer<ZYN::ProductType>, ProductType)
};

class FixtureBase : public ManagedObject {
public:
    using ManagedObject::ManagedObject;
    ANSWER(QString, Ident)
    ANSWER(QString, Description)
};

class Fixture : public FixtureBase {
public:
    using FixtureBase::FixtureBase;
    ANSWER(QString, SerialNo)
    ANSWER(QString, FixtureTypeName)
};

class Station : public ManagedObject {
public:
    using ManagedObject::ManagedObject;
    PROPERTY(QString, Description)
};

class ZYNUser : public ManagedObject {
public:
    explicit ZYNUser(const QString& name)
        : ManagedObject(0, name)
    {
    }
    void SetPassword(const QString&) {}
};

class WorkSpace : public ManagedObject {
public:
    using ManagedObject::ManagedObject;
    QString GetCurrentUserName() const { return CurrentUser ? CurrentUser->GetName() : QString(); }
    void Login(int index, const QString&) { CurrentUser = UserList.value(index); }
    PROPERTY(QList<QSharedPointer<ZYNUser>>, UserList)
    ANSWER(QSharedPointer<ZYNUser>, CurrentUser)
};

class ZYNSession : public QObject {
public:
    QString GetWorkspaceName() const { return WorkSpace ? WorkSpace->GetName() : QString(); }
    QString GetCurrentUserName() const { return WorkSpace ? WorkSpace->GetCurrentUserName() : QString(); }
    PROPERTY(QString, MachineName)
    PROPERTY(QSharedPointer<ZYN::WorkSpace>, WorkSpace)
};

} // namespace ZYN
