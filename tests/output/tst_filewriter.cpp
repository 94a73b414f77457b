// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "output/filewriter.h"
#include "support/datarows.h"
#include "support/fullfiles.h"
#include "support/samplefile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <fcntl.h>
#include <ostream>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

namespace {

void writeNew(std::ostream& out)
{
    out << "new\n";
}

void writeMuch(std::ostream& out)
{
    out << std::string(300000, 'x') << '\n';
}

/// Why @p path cannot be opened, provided that this is told before anything is made for it.
QString openingFailure(const QString& path)
{
    bool wasAsked = false;
    const auto failure = writeFile(path, [&wasAsked](std::ostream& out) {
        wasAsked = true;
        writeNew(out);
    });
    const bool isOpening = failure && failure->step == WriteFailure::Step::Opening;
    return isOpening && !wasAsked ? failure->reason : QString();
}

/// For root every folder takes a second file, so the process becomes nobody for a while.
class OrdinaryUser
{
public:
    OrdinaryUser() : m_isRoot(geteuid() == 0 && seteuid(65534) == 0) {}
    ~OrdinaryUser()
    {
        if (m_isRoot && seteuid(0) != 0)
            qFatal("Cannot become root again");
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    bool m_isRoot;
};

} // namespace

class TestFileWriter : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_old; ///< a file that reads "old\n"

    QString place(const QString& name) const { return m_folder->filePath(name); }
    QStringList names() const
    {
        return QDir(m_folder->path())
            .entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
    }

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_old = place("old.dat");
        QFile file(m_old);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("old\n") == 4);
    }

    void theNewFileTakesTheOldOnesPlace()
    {
        QVERIFY(QFile::setPermissions(m_old, QFile::ReadOwner | QFile::WriteOwner));
        const auto permissions = QFile::permissions(m_old);
        QVERIFY(!writeFile(m_old, writeNew));
        QCOMPARE(contentsOf(m_old), "new\n");
        QCOMPARE(QFile::permissions(m_old), permissions);
        QVERIFY(!writeFile(place("other.dat"), writeMuch));
        QCOMPARE(contentsOf(place("other.dat")).size(), 300001);
        QVERIFY(!writeFile(place(QString(250, 'n')), writeNew)); // no longer name has room
        QCOMPARE(names().size(), 3);
    }

    void aFailureLeavesTheOldFile_data()
    {
        const DataRows<std::function<void(std::ostream&)>, int, QString> row("write", "step",
                                                                             "reason");
        const auto writeSome = [](std::ostream& out) { out << std::string(2000, 'x'); };
        const auto noNumbers = [](std::ostream&) { throw std::runtime_error("no numbers"); };
        const auto noMemory = [](std::ostream&) { throw std::bad_alloc(); };
        row("full while writing", writeMuch, int(WriteFailure::Step::Writing), "File too large");
        row("full at the end", writeSome, int(WriteFailure::Step::Writing), "File too large");
        row("no content", noNumbers, int(WriteFailure::Step::Content), "no numbers");
        row("no memory", noMemory, int(WriteFailure::Step::Content), "Not enough memory.");
    }

    void aFailureLeavesTheOldFile()
    {
        QFETCH(std::function<void(std::ostream&)>, write);
        QFETCH(int, step);
        QFETCH(QString, reason);
        for (const QString& path : {m_old, place("other.dat")}) {
            const FullFiles limit(1000);
            const auto failure = writeFile(path, write);
            QVERIFY(failure);
            QCOMPARE(int(failure->step), step);
            QCOMPARE(failure->text(), path + ": " + reason);
        }
        QCOMPARE(contentsOf(m_old), "old\n");
        QCOMPARE(names(), QStringList("old.dat"));
    }

    void whatCannotBeOpenedIsToldAtOnceInTheSystemsWords()
    {
        QCOMPARE(openingFailure(place("no/file.dat")), "No such file or directory");
        QCOMPARE(openingFailure(m_folder->path()), "Is a directory");
        QVERIFY(QFile::setPermissions(m_old, QFile::Permissions(0x4444)));
        QVERIFY(QFile::setPermissions(m_folder->path(), QFile::Permissions(0x7777)));
        QCOMPARE(mkfifo(place("pipe").toStdString().c_str(), 0400), 0);
        const OrdinaryUser user;
        QCOMPARE(openingFailure(place("pipe")), "Permission denied");
        QCOMPARE(openingFailure(m_old), "Permission denied");
        QCOMPARE(contentsOf(m_old), "old\n");
    }

    void aFolderThatTakesNoSecondFile()
    {
        QVERIFY(QFile::setPermissions(m_old, QFile::Permissions(0x6666)));
        QVERIFY(QFile::setPermissions(m_folder->path(), QFile::Permissions(0x5555)));
        {
            const OrdinaryUser user;
            QVERIFY(writeFile(m_old, [](std::ostream&) { throw std::bad_alloc(); }));
            QCOMPARE(contentsOf(m_old), "old\n");
            QVERIFY(!writeFile(m_old, writeNew));
            QCOMPARE(openingFailure(place("other.dat")), "Permission denied");
        }
        QVERIFY(QFile::setPermissions(m_folder->path(), QFile::Permissions(0x7700)));
        QCOMPARE(contentsOf(m_old), "new\n");
    }

    void linksStayAndTheirTargetsAreWritten()
    {
        QVERIFY(QFile::link("old.dat", place("link.dat")));
        QVERIFY(QFile::link("link.dat", place("second link.dat")));
        QVERIFY(QFile::link("not yet.dat", place("dangling.dat")));
        QVERIFY(!writeFile(place("second link.dat"), writeNew));
        QVERIFY(!writeFile(place("dangling.dat"), writeNew));
        for (const char* name : {"link.dat", "second link.dat", "dangling.dat"})
            QVERIFY2(QFileInfo(place(name)).isSymLink(), name);
        QCOMPARE(contentsOf(m_old), "new\n");
        QCOMPARE(contentsOf(place("not yet.dat")), "new\n");
    }

    /// Root, who could replace a pipe or a device, must not either.
    void whatIsNoRegularFileIsNeverReplaced()
    {
        const std::string pipe = place("pipe").toStdString();
        QCOMPARE(mkfifo(pipe.c_str(), 0600), 0);
        QVERIFY(QFile::link("pipe", place("link")));
        const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
        for (const char* name : {"pipe", "link"}) {
            QVERIFY(!writeFile(place(name), writeNew));
            char bytes[8];
            QCOMPARE(read(reader, bytes, sizeof bytes), 4);
        }
        close(reader);
        struct stat after;
        QVERIFY(stat(pipe.c_str(), &after) == 0 && S_ISFIFO(after.st_mode));

        // Where the standard output leads into a file, the process goes on writing to that very
        // file.
        const std::string old = m_old.toStdString();
        struct stat before;
        const int output = open(old.c_str(), O_WRONLY);
        QVERIFY(fstat(output, &before) == 0);
        for (const char* folder : {"/proc/self/fd/", "/dev/fd/"})
            QVERIFY(!writeFile(folder + QString::number(output), writeNew));
        QVERIFY(stat(old.c_str(), &after) == 0);
        QCOMPARE(after.st_ino, before.st_ino);
        QCOMPARE(contentsOf(m_old), "new\n");
        close(output);
    }
};

QTEST_GUILESS_MAIN(TestFileWriter)
#include "tst_filewriter.moc"
