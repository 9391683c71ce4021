#include "LotFiles.h"
#include "LotModels.h"
#include "support/Test.h"

using namespace ZYN;

/// Kills a process that adds parts to a lot, again and again, at random moments.
class StdfKillTest : public QObject {
    Q_OBJECT

private:
    static constexpr int kills = 200;
    static constexpr int killsPerLot = 10;
    static constexpr int partsOfAPanel = 8;

    QTemporaryDir folder;
    QRandomGenerator random{20240517};

    /// Lets the appender run for a moment.
    /// \return idents of the parts that it said were complete
    QStringList RunAndKill(const QString& lot, const QString& prefix)
    {
        QProcess appender;
        appender.start(QStringLiteral(ZYN_LOT_APPENDER), {lot, prefix});
        if (!appender.waitForReadyRead(20000))
            return {"the appender did not start"};
        QThread::usleep(random.bounded(40'000U));
        appender.kill(); // SIGKILL
        appender.waitForFinished();
        if (appender.exitStatus() != QProcess::CrashExit)
            return {"the appender ended by itself"};
        return QString(appender.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts).mid(1); // "ready"
    }

    /// Up to where the bytes of a lot must never change again.
    static qint64 Settled(const QByteArray& bytes, const LotFiles::Contents& contents)
    {
        const auto counts = contents.Of("PCR");
        const bool closed = contents.Names().endsWith("PCR MRR") && !contents.fault;
        if (closed || contents.Names().endsWith("PCR"))
            return counts.back().offset;
        return contents.fault ? contents.fault->offset : bytes.size();
    }

private slots:
    void NothingIsLost()
    {
        const QDeadlineTimer deadline(240'000);
        QString lot;
        QByteArray before;
        QStringList complete;
        int done = 0;
        for (; done < kills && !deadline.hasExpired(); ++done) {
            if (done % killsPerLot == 0) {
                lot = folder.filePath(QString("lot%1.stdf").arg(done / killsPerLot));
                before.clear();
                complete.clear();
            }
            const qint64 settled = before.isEmpty() ? 0 : Settled(before, LotFiles::Read(lot));
            const QStringList said = RunAndKill(lot, QString("K%1-").arg(done));

            const QByteArray after = QFile::exists(lot) ? Files::Content(lot) : QByteArray();
            const auto contents = LotFiles::Read(lot);
            const QStringList parts = contents.PartIds();
            QVERIFY2(after.startsWith(before.first(settled)), qPrintable(QString("kill %1").arg(done)));
            QCOMPARE(parts.first(qMin(parts.size(), complete.size())), complete);
            // What was said to be complete is there, perhaps followed by some that could not be told.
            QCOMPARE(parts.mid(complete.size(), said.size()), said);
            QVERIFY(parts.size() - complete.size() - said.size() <= partsOfAPanel);
            before = after;
            complete = parts;

            if ((done + 1) % killsPerLot == 0)
                EndLot(lot, complete);
        }
        QVERIFY2(done == kills, "the machine is too slow for all kills");
    }

private:
    /// A last part, then the whole file is readable.
    void EndLot(const QString& lot, const QStringList& complete)
    {
        QVERIFY(LotModels::Append(LotModels::SimpleUnit("last"), lot));
        const auto contents = LotFiles::Read(lot);
        QVERIFY2(!contents.fault, "the reader does not reach the end");
        QCOMPARE(contents.PartIds(), complete + QStringList("last"));
        QFile::remove(lot);
    }
};

QTEST_GUILESS_MAIN(StdfKillTest)
#include "StdfKillTest.moc"
