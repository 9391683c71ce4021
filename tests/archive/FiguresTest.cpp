#include "archive/figures/Cpk.h"
#include "archive/figures/DriftTests.h"
#include "archive/figures/Holm.h"
#include "archive/figures/NelsonRules.h"
#include "archive/figures/Wilson.h"
#include "support/Rows.h"
#include "support/Test.h"

#include <random>

using namespace ZYN;
using namespace ZYN::Figures;

/// What the property test of answers does not reach: how sure the alarm is, and figures at the edges.
class FiguresTest : public QObject {
    Q_OBJECT

private:
    std::mt19937_64 random{42};

    // 100 measurements of 200 units, of which the first one drifts.
    std::vector<std::optional<FoundDrift>> DriftsOfLot(double slope, double step, int broken = 0)
    {
        std::normal_distribution<double> noise;
        std::vector<DriftTests> tests;
        for (int measurement = 0; measurement < 100; ++measurement) {
            std::vector<double> values(200);
            for (int unit = 0; unit < 200; ++unit)
                values[size_t(unit)] =
                    noise(random) + (measurement > 0 ? 0 : slope * unit / 199 + (unit < 100 ? 0 : step));
            for (int i = 0; i < broken; ++i)
                values[size_t(random() % values.size())] = -200;
            tests.emplace_back(values);
        }
        return FindDrifts(tests);
    }

private slots:
    void NoiseIsNoDrift()
    {
        int flagged = 0;
        for (int lot = 0; lot < 200; ++lot)
            for (const std::optional<FoundDrift>& drift : DriftsOfLot(0, 0))
                flagged += drift.has_value();
        QVERIFY2(flagged <= 4, qPrintable(QString::number(flagged)));
    }

    void DriftIsFound_data()
    {
        const Rows<double, double, int, int> row;
        row("slope of two sigma", 2, 0, 0, int(FoundDrift::Kind::Trend));
        row("step of one sigma", 0, -1, 0, int(FoundDrift::Kind::Step));
        row("among broken units", 2, 0, 6, int(FoundDrift::Kind::Trend));
    }
    void DriftIsFound()
    {
        const auto [slope, step, broken, kind] = CurrentRow<double, double, int, int>();
        int found = 0, asSuch = 0;
        for (int lot = 0; lot < 100; ++lot) {
            const std::optional<FoundDrift> drift = DriftsOfLot(slope, step, broken).front();
            found += drift && (drift->sigmas > 0) == (slope + step > 0);
            asSuch += drift && int(drift->kind) == kind;
        }
        QVERIFY2(found >= 95, qPrintable(QString::number(found)));
        QVERIFY2(asSuch >= 80, qPrintable(QString::number(asSuch)));
    }

    void FiguresAtTheEdges()
    {
        Moments close; // sums of squares would know nothing of it
        for (const double number : {1e6 + 1e-4, 1e6 - 1e-4, 1e6})
            close.Add(number);
        QVERIFY(qAbs(*close.GetSigma() / 1e-4 - 1) < 1e-5);
        QVERIFY(Cpk(close, {.lower = {}, .upper = 1e6 + 3e-4}));
        QVERIFY(!Cpk(close, {.lower = 0.0, .upper = 2e6, .inverted = true}));
        QVERIFY(!Cpk(Moments(), {.lower = 0.0, .upper = 1.0}));
        // Interval of a rate, by hand: 80 of 200 is worse than 1 of 2.
        QVERIFY(qAbs(WilsonLowerBound(80, 200) - 0.3346) < 1e-4);
        QVERIFY(qAbs(WilsonLowerBound(1, 2) - 0.0945) < 1e-4);
        // The example of Holm's correction with ties of rank.
        const double p[] = {0.01, 0.04, 0.03, 0.005};
        QCOMPARE(HolmCorrected(p), (std::vector<double>{0.03, 0.06, 0.06, 0.02}));
    }

    void RulesBeginWhereTheyBegan()
    {
        const std::vector<double> numbers{0, 0, 1, 0, 1, 2, 3, 4, 5, 6, 0, 90};
        const std::vector<NelsonHit> hits = NelsonHits(numbers);
        QCOMPARE(hits.size(), size_t(3));
        QCOMPARE(hits[0], (NelsonHit{1, 11}));
        QCOMPARE(hits[1], (NelsonHit{2, 0}));
        QCOMPARE(hits[2], (NelsonHit{3, 3}));
    }
};

QTEST_GUILESS_MAIN(FiguresTest)
#include "FiguresTest.moc"
