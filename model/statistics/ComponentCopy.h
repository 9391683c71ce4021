#pragma once

#include <QtCore/QSharedPointer>

namespace ZYN {

class TestComponent;
class TestProgram;

/// Copies of single components: same class, id, ident, name, type and what is known about itself, but
/// without parent, children, results and controls. A statistics entry keeps such a copy, so that it does
/// not hold a whole run in memory.
namespace ComponentCopy {

QSharedPointer<TestComponent> Of(const TestComponent* component);
QSharedPointer<TestProgram> OfProgram(const TestProgram* program);

} // namespace ComponentCopy
} // namespace ZYN
