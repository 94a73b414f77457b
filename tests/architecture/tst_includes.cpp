// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QTest>

/// Static libraries link whatever the headers allow, so a header included against the arrows
/// between the folders would compile unnoticed.
class TestIncludes : public QObject
{
    Q_OBJECT

private slots:
    void foldersUseOnlyWhatStandsBelowThem();
    void innerRoomsAreUsedByTheirFolderOnly();
    void numericsKnowsNoToolkit();
    void nobodyIncludesTheEntry();

private:
    /// Calls @p check with (folder, file, included path) for every quoted or bracketed include in
    /// src.
    template <typename Check>
    void forEachInclude(Check check) const
    {
        static const QRegularExpression pattern(QStringLiteral("#include [\"<]([^\">]+)[\">]"));
        const QDir source(QStringLiteral(PELMORA_SOURCE_DIR "/src"));
        QDirIterator files(source.path(), {QStringLiteral("*.h"), QStringLiteral("*.cpp")},
                           QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            QVERIFY(file.open(QIODevice::ReadOnly));
            const QString path = source.relativeFilePath(file.fileName());
            auto found = pattern.globalMatch(QString::fromLatin1(file.readAll()));
            while (found.hasNext())
                check(path.section(u'/', 0, 0), path, found.next().captured(1));
        }
    }
};

void TestIncludes::foldersUseOnlyWhatStandsBelowThem()
{
    const QStringList input = {"input", "numerics"};
    const QStringList output = QStringList("output") + input;
    const QStringList views = QStringList{"views", "settings"} + output;
    const QStringList minimalPairs = QStringList("minimalpairs") + views;
    const QStringList convert = QStringList("convert") + output;
    const QMap<QString, QStringList> allowed = {{"numerics", {"numerics"}},
                                                {"settings", {"settings"}},
                                                {"input", input},
                                                {"output", output},
                                                {"views", views},
                                                {"minimalpairs", minimalPairs},
                                                {"convert", convert},
                                                {"batch", QStringList("batch") + minimalPairs},
                                                {"app", QStringList("app") + minimalPairs}};
    forEachInclude([&](const QString& folder, const QString& path, const QString& include) {
        const QString used = include.section(u'/', 0, 0);
        if (allowed.contains(used))
            QVERIFY2(allowed[folder].contains(used), qPrintable(path + " includes " + include));
    });
}

/// Kernels and scanners are the business of the folder around them.
void TestIncludes::innerRoomsAreUsedByTheirFolderOnly()
{
    forEachInclude([](const QString& folder, const QString& path, const QString& include) {
        for (const QLatin1String room :
             {QLatin1String("numerics/kernels/"), QLatin1String("input/scan/")})
            if (include.startsWith(room))
                QVERIFY2(room.startsWith(folder), qPrintable(path + " includes " + include));
    });
}

void TestIncludes::numericsKnowsNoToolkit()
{
    forEachInclude([](const QString& folder, const QString& path, const QString& include) {
        if (folder == QLatin1String("numerics"))
            QVERIFY2(!include.startsWith(u'Q'), qPrintable(path + " includes " + include));
    });
}

void TestIncludes::nobodyIncludesTheEntry()
{
    forEachInclude([](const QString& folder, const QString& path, const QString& include) {
        if (folder != QLatin1String("app"))
            QVERIFY2(!include.contains("startup.h"), qPrintable(path + " includes " + include));
    });
}

QTEST_GUILESS_MAIN(TestIncludes)
#include "tst_includes.moc"
