#pragma once

/// \file
/// What most tests need: files, other programs, tables of rows, and Qt Test with all of Qt Core.

#include "Files.h"
#include "Program.h"
#include "Rows.h"

#include <QtTest/QtTest>
