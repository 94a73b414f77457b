// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "support/dialogscript.h"
#include "support/testsettings.h"
#include "views/diagramgeometry.h"
#include "views/factorform.h"
#include "views/fakesession.h"
#include "views/loadings.h"

#include <QClipboard>
#include <QDialog>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTabWidget>
#include <QTableView>
#include <QTest>

namespace {

QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

/// The proposed folder must exist, else the dialog falls back to another.
class StoredSession : public FakeSession
{
public:
    QString outputStem() const override { return m_folder.filePath(QStringLiteral("stem")); }

private:
    QTemporaryDir m_folder;
};

/// A Varimax page of three variables and two factors, with two cases.
struct Page
{
    explicit Page(SessionFace* session, bool leaveOutMinimalPairs = false, bool withScores = true)
        : form(nullptr, 2, session)
    {
        form.setTitle(QStringLiteral("Varimax rotated factors : "));
        form.setUp(loadingsOf({{0.9, 0.1}, {0.5, -0.4}, {-0.25, 1.0}}, {"one", "two", "three"}),
                   leaveOutMinimalPairs,
                   withScores ? matrixOf({{1.0, -0.5}, {-1.0, 0.5}}) : pelmora::Matrix());
    }

    template <class Widget>
    Widget* find(const char* name)
    {
        return form.findChild<Widget*>(QLatin1String(name));
    }
    void click(const char* name) { find<QPushButton>(name)->click(); }
    QTableView* diagram() { return find<QTableView>("tableFactors"); }
    QStringList tabs()
    {
        QStringList texts;
        auto* widget = find<QTabWidget>("tabWidget");
        for (int i = 0; i < widget->count(); ++i)
            texts << widget->tabText(i);
        return texts;
    }
    QString header(int row) { return diagram()->model()->headerData(row, Qt::Vertical).toString(); }

    FactorForm form;
};

} // namespace

class tst_FactorForm : public QObject
{
    Q_OBJECT

private:
    TestSettings m_settings;
    QTemporaryDir m_folder;
    StoredSession m_session;

    QString path(const QString& name) const { return m_folder.filePath(name); }

private slots:
    void init()
    {
        m_settings.clear();
        QTest::failOnWarning(QRegularExpression("No matching signal"));
    }

    void tabsDependOnWhatThereIs()
    {
        QCOMPARE(Page(&m_session).tabs(),
                 QStringList({"Visualization", "Minimal pairs", "Factor scores"}));
        QCOMPARE(Page(&m_session, false, false).tabs(),
                 QStringList({"Visualization", "Minimal pairs"}));
        QCOMPARE(Page(&m_session, true, true).tabs(),
                 QStringList({"Visualization", "Factor scores"}));
        QCOMPARE(Page(&m_session, true, false).tabs(), QStringList({"Visualization"}));
    }

    void focalFactorsBecomeTabs()
    {
        Page page(&m_session);
        page.form.addFocalFactorTab(new QWidget, 2);
        QCOMPARE(page.find<QTabWidget>("tabWidgetMinimalPairs")->tabText(0), "Focal factor No. 2");
        QCOMPARE(page.find<QLabel>("labelFactors")->text(), "Varimax rotated factors : ");
    }

    void scoresAreShownByPrecision()
    {
        m_settings.set("Precision", 3);
        Page page(&m_session);
        const auto* model = page.find<QTableView>("scoresTable")->model();
        QCOMPARE(model->rowCount(), 2);
        QCOMPARE(model->headerData(1, Qt::Horizontal).toString(), "Factor F2");
        QCOMPARE(model->index(0, 1).data().toString(), "-0.500");
    }

    void zoomMakesRoomAtOnce()
    {
        Page page(&m_session);
        page.form.show();
        auto* slider = page.find<QScrollBar>("horizontalScrollBarZarnelSize");
        QCOMPARE(slider->minimum(), 25);
        QCOMPARE(slider->maximum(), 125);
        for (int size : {125, 25, 80}) {
            slider->setValue(size);
            DiagramGeometry geometry;
            geometry.size = size;
            const QTableView* table = page.diagram();
            QVERIFY(table->rowHeight(3) >= 2 * 4 + size);
            QVERIFY(table->rowHeight(3) <= 2 * 4 + size + 30);
            QVERIFY(table->columnWidth(2) >= geometry.cellSize(1.0, 1.0).width());
        }
    }

    void namesOfAnotherCountAreIgnored()
    {
        Page page(&m_session);
        m_session.setVariableNames({"x", "y"});
        QCOMPARE(page.header(1), "one");
        m_session.setVariableNames({"two words", "y", "\u03A9"});
        QCOMPARE(page.header(1), "two\nwords");
        QCOMPARE(page.header(3), "?");
        QVERIFY(page.diagram()->rowHeight(1) >= 2 * page.form.fontMetrics().height());
    }

    void pageOutlivesItsSession()
    {
        auto session = std::make_unique<FakeSession>();
        Page page(session.get());
        session.reset();
        DialogScript script;
        script.cancelFile();
        page.click("ExportRotated");
        QCOMPARE(script.takeRecord().size(), 1);
    }

    void exportsProposeNamesByKind_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("loadings");
        QTest::addColumn<QString>("scores");
        QTest::newRow("Pelmora") << "Pelmora rotated factors : "
                                 << "okt"
                                 << "fok";
        QTest::newRow("Varimax") << "Varimax rotated factors : "
                                 << "max"
                                 << "fma";
        QTest::newRow("Initial") << "Initial factors : "
                                 << "ini"
                                 << "fini";
    }
    void exportsProposeNamesByKind()
    {
        QFETCH(QString, title);
        QFETCH(QString, loadings);
        QFETCH(QString, scores);
        Page page(&m_session);
        page.form.setTitle(title);
        DialogScript script;
        for (const char* button : {"ExportRotated", "pushButtonSaveScores", "ImageButton"}) {
            script.cancelFile();
            page.click(button);
        }
        const QString caption = "Please select folder and filename to save values|%1_2.%2|*.%2";
        QCOMPARE(script.takeRecord(),
                 QStringList({caption.arg(m_session.outputStem(), loadings),
                              caption.arg(m_session.outputStem(), scores),
                              QStringLiteral("Save As|%1_2_%2.png|PNG Files (*.png);;All Files (*)")
                                  .arg(m_session.outputStem(), loadings)}));
    }

    void exportsWriteWhatIsShown()
    {
        Page page(&m_session);
        m_session.setVariableNames({"new one", "b", "c"});
        DialogScript script;
        script.chooseFile(path("a.max"));
        page.click("ExportRotated");
        QVERIFY(contentsOf(path("a.max"))
                    .startsWith("    0.9     0.1  |    0.82 | new one\n    0.5    -0.4  |"));
        script.chooseFile(path("b.fma"));
        m_settings.set("Precision", 4); // the table keeps the decimals it was filled with
        page.click("pushButtonSaveScores");
        QCOMPARE(contentsOf(path("b.fma")), "  1.00 -0.50\n -1.00  0.50\n");
    }

    void failedExportsAreTold()
    {
        Page page(&m_session);
        DialogScript script;
        for (const char* button : {"ExportRotated", "pushButtonSaveScores", "ImageButton"}) {
            script.chooseFile("/dev/null/none");
            page.click(button);
            QCOMPARE(script.takeRecord().value(1),
                     "Error opening file|Cannot open file /dev/null/none");
        }
        script.chooseFile("/dev/full");
        page.click("ExportRotated");
        const QString box = script.takeRecord().last();
        QVERIFY(box.startsWith("Error while saving data|") && !box.endsWith("|"));
    }

    void imageGoesToClipboardBeforeTheDialog()
    {
        Page page(&m_session);
        page.find<QScrollBar>("horizontalScrollBarZarnelSize")->setValue(100);
        QGuiApplication::clipboard()->clear();
        DialogScript script;
        QSize copied;
        script.onDialog([&copied](QDialog* dialog) {
            copied = QGuiApplication::clipboard()->image().size();
            dialog->reject();
        });
        page.click("ImageButton");
        const auto* table = page.diagram();
        const qreal ratio = qGuiApp->devicePixelRatio();
        QCOMPARE(copied / ratio,
                 QSize(table->verticalHeader()->width() + table->horizontalHeader()->length(),
                       table->horizontalHeader()->height() + table->verticalHeader()->length()));

        script.chooseFile(path("diagram.png"));
        page.click("ImageButton");
        const QImage saved(path("diagram.png"), "PNG");
        QCOMPARE(saved.size(), copied);
        QCOMPARE(saved.dotsPerMeterX(), qRound(3780 * ratio));
    }
};

QTEST_MAIN(tst_FactorForm)
#include "tst_factorform.moc"
