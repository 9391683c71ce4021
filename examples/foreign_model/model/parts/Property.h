#pragma once

/// A member with its getter and setter; clang-format would spread what is one thing over many lines.
// clang-format off
#define PROPERTY(Type, Name)                      \
    Type Get##Name() const { return Name; }       \
    void Set##Name(Type v) { Name = v; }   \
    Type Name{};
/// A member that is told, but not set.
#define ANSWER(Type, Name)                        \
    Type Get##Name() const { return Name; }       \
    Type Name{};
// clang-format on
