#pragma once

#include <QtCore/QtGlobal>

namespace ZYN::Simulation {

/// Random numbers that are the same on every machine and with every standard library: SplitMix64 (Steele,
/// Lea, Flood: Fast splittable pseudorandom number generators, 2014) and distributions that need no
/// mathematics library.
class Random {
public:
    /// The stream of one run: `part` numbers what the seed is split into.
    explicit Random(quint64 seed, quint64 part = 0)
        : m_state(seed * 0x9e3779b97f4a7c15u + part * 0xd1b54a32d192ed03u)
    {
        Next();
    }

    quint64 Next()
    {
        quint64 z = m_state += 0x9e3779b97f4a7c15u;
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9u;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebu;
        return z ^ (z >> 31);
    }

    /// From 0 inclusive to 1 exclusive.
    double Uniform() { return double(Next() >> 11) / 9007199254740992.0; }

    /// From 0 to `count` - 1.
    int Below(int count) { return int(Next() % quint64(count)); }

    /// Mean 0, sigma 1, never beyond 6: the sum of twelve uniform numbers (Irwin-Hall distribution).
    double Normal()
    {
        double sum = -6.0;
        for (int i = 0; i < 12; ++i)
            sum += Uniform();
        return sum;
    }

private:
    quint64 m_state;
};

} // namespace ZYN::Simulation
