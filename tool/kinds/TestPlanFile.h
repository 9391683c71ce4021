#pragma once

#include "kinds/Finding.h"
#include "kinds/ShowOptions.h"
#include "terminal/Problem.h"

#include <QtCore/QByteArray>
#include <QtCore/QJsonObject>
#include <QtCore/QList>
#include <QtCore/QString>

#include <optional>

namespace ZYN::Tool {

/// Whether a file that begins so is a test plan.
bool LooksLikeTestPlan(const QByteArray& head);
/// Prints the plan, component by component.
std::optional<Problem> ShowTestPlan(const QString& path, const QString& name, const ShowOptions& options);
std::optional<Problem> TestPlanToJson(const QString& path, const QString& name, const ShowOptions& options,
                                      QJsonObject* object);
/// What a reader says against a plan, and where.
/// \param text message, a tab, line and column
Finding FaultOfPlan(const QString& text);
/// Faults that keep the plan from being read, and notes about what a reader passes over in silence.
QList<Finding> CheckTestPlan(const QString& path);

} // namespace ZYN::Tool
