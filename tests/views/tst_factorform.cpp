// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "support/datarows.h"
#include "support/dialogscript.h"
#include "support/samplefile.h"
#include "views/diagramgeometry.h"
#include "views/factorform.h"
#include "views/fakesession.h"
#include "views/loadings.h"
#include "views/viewtest.h"
#include "views/widgets.h"

#include <QAction>
#include <QClipboard>
#include <QDialog>
#include <QFileDialog>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTabWidget>
#include <QWheelEvent>

#include <cmath>
#include <memory>

namespace {

/// A page of three variables and two factors, with two cases.
struct Page : FactorForm
{
    explicit Page(SessionFace* session, bool leaveOutMinimalPairs = false, bool withScores = true)
        : FactorForm(nullptr, 2, session)
    {
        setKind(FactorKind::Varimax);
        setUp(loadingsOf({{0.9, 0.1}, {0.5, -0.125}, {-0.25, 1.0}}, {"one", "two", "\u00e4"}),
              leaveOutMinimalPairs,
              withScores ? matrixOf({{0.5, -10.125}, {-0.001, INFINITY}}) : pelmora::Matrix());
    }

    QTableView* diagram() const { return findChild<QTableView*>("tableFactors"); }
    QStringList tabs() const
    {
        QStringList texts;
        const auto* widget = findChild<QTabWidget*>("tabWidget");
        for (int i = 0; i < widget->count(); ++i)
            texts << widget->tabText(i);
        return texts;
    }
};

const char* const exportButtons[] = {"ExportRotated", "pushButtonSaveScores", "ImageButton"};

} // namespace

class TestFactorForm : public ViewTest
{
    Q_OBJECT

private:
    DialogScript m_dialogs;
    QTemporaryDir m_folder;
    FakeSession m_session;

    QByteArray exported(const QWidget& page, const char* button)
    {
        const QString path = m_folder.filePath(button);
        m_dialogs.chooseFile(path);
        click(page, button);
        return contentsOf(path);
    }

private slots:
    void init()
    {
        ViewTest::init();
        m_dialogs.takeRecord();
    }

    void tabsDependOnWhatThereIs()
    {
        QCOMPARE(Page(&m_session).tabs(),
                 QStringList({"Visualization", "Minimal pairs", "Factor scores"}));
        QCOMPARE(Page(&m_session, true, false).tabs(), QStringList({"Visualization"}));
        Page page(&m_session, false, false);
        QCOMPARE(page.tabs(), QStringList({"Visualization", "Minimal pairs"}));
        page.addFocalFactorTab(new QWidget, 2);
        const auto* pairs = page.findChild<QTabWidget*>("tabWidgetMinimalPairs");
        QCOMPARE(pairs->tabText(0), "Focal factor No. 2");
        QCOMPARE(page.findChild<QLabel*>("labelFactors")->text(), "Varimax rotated factors : ");
    }

    void exportsAreLaidOutInFields()
    {
        m_settings.set("Precision", 2);
        const Page page(&m_session);
        m_settings.set("Precision", 3); // the scores keep the decimals that they are shown with
        QCOMPARE(exported(page, "ExportRotated"), "     0.9      0.1  |     0.82 | one\n"
                                                  "     0.5   -0.125  |    0.266 | two\n"
                                                  "   -0.25        1  |    1.063 | \xE4\n"
                                                  "-------------------------------\n"
                                                  "  37.417   34.188  |   71.604\n");
        QCOMPARE(shown(page.findChild<QTableView*>("scoresTable")),
                 QStringList({"|Factor F1|Factor F2", "1|0.50|-10.12", "2|0.00|inf"}));
        QCOMPARE(exported(page, "pushButtonSaveScores"), "   0.50 -10.12\n   0.00    inf\n");
    }

    void theZoomMakesRoomAtOnceAndFollowsKeysAndWheel()
    {
        Page page(&m_session);
        page.show();
        auto* bar = page.findChild<QScrollBar*>("horizontalScrollBarZarnelSize");
        QCOMPARE(bar->minimum(), 25);
        QCOMPARE(bar->maximum(), 125);
        for (int size : {125, 25, 80}) {
            bar->setValue(size);
            const QTableView* table = page.diagram();
            QVERIFY(table->rowHeight(3) >= 2 * 4 + size);
            QVERIFY(table->rowHeight(3) <= 2 * 4 + size + 30);
            const DiagramGeometry geometry{.size = size};
            QVERIFY(table->columnWidth(2) >= geometry.cellSize(1.0, 1.0).width());
        }
        const auto directionAfter = [bar](const auto& input) {
            bar->setValue(80);
            input();
            return bar->value() > 80 ? 1 : bar->value() < 80 ? -1 : 0;
        };
        for (const auto key : {Qt::Key_Right, Qt::Key_Up, Qt::Key_PageUp, Qt::Key_End})
            QCOMPARE(directionAfter([&] { QTest::keyClick(bar, key); }), 1);
        for (const auto key : {Qt::Key_Left, Qt::Key_Down, Qt::Key_PageDown, Qt::Key_Home})
            QCOMPARE(directionAfter([&] { QTest::keyClick(bar, key); }), -1);
        // A wheel upwards and to the right.
        for (const QPoint turn : {QPoint(0, 120), QPoint(-120, 0)})
            for (const int sign : {1, -1})
                QCOMPARE(directionAfter([&] {
                             const QPointF middle(10, 5);
                             QWheelEvent wheel(middle, bar->mapToGlobal(middle), {}, sign * turn,
                                               Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                                               false);
                             QCoreApplication::sendEvent(bar, &wheel);
                         }),
                         sign);
    }

    void namesFollowTheSession()
    {
        const Page page(&m_session);
        m_session.setVariableNames({"x", "y"}); // of another count
        QVERIFY(shown(page.diagram()).value(2).startsWith("one|"));
        m_session.setVariableNames({"two words", "y", "\u03A9"});
        QVERIFY(shown(page.diagram()).value(2).startsWith("two\nwords|"));
        QVERIFY(shown(page.diagram()).value(4).startsWith("?|"));
        QVERIFY(page.diagram()->rowHeight(1) >= 2 * page.fontMetrics().height());
        QVERIFY(exported(page, "ExportRotated")
                    .startsWith("    0.9     0.1  |    0.82 | two words\n    0.5 "));
    }

    void exportsProposeNamesByKind_data()
    {
        const DataRows<FactorKind, QString, QString, QString> row("kind", "title", "loadings",
                                                                  "scores");
        row("Pelmora", FactorKind::Pelmora, "Pelmora rotated factors : ", "okt", "fok");
        row("Varimax", FactorKind::Varimax, "Varimax rotated factors : ", "max", "fma");
        row("initial", FactorKind::Initial, "Initial factors : ", "ini", "fini");
    }

    void exportsProposeNamesByKind()
    {
        QFETCH(FactorKind, kind);
        QFETCH(QString, loadings);
        QFETCH(QString, scores);
        auto session = std::make_unique<FakeSession>();
        Page page(session.get());
        const QString text = "Please select folder and filename to save values|%1_2.%2|*.%2";
        const QString image = "Save As|%1_2_%2.png|PNG Files (*.png);;All Files (*)";
        const QString stem = session->outputStem();
        const auto record = [&] {
            for (const char* button : exportButtons) {
                m_dialogs.cancelFile();
                click(page, button);
            }
            return m_dialogs.takeRecord();
        };
        page.setKind(kind);
        QTEST(page.findChild<QLabel*>("labelFactors")->text(), "title");
        QCOMPARE(record(), QStringList({text.arg(stem, loadings), text.arg(stem, scores),
                                        image.arg(stem, loadings)}));
        session.reset(); // the page goes on without a proposal, and without the scores
        QCOMPARE(page.findChild<QTableView*>("scoresTable")->model()->rowCount(), 0);
        QCOMPARE(record().size(), 3);
    }

    void failedExportsAreTold()
    {
        const Page page(&m_session);
        for (const char* button : exportButtons) {
            m_dialogs.chooseFile("/dev/full");
            click(page, button);
            QCOMPARE(m_dialogs.takeRecord().last(),
                     "Error while saving data|/dev/full: No space left on device");
        }
    }

    void drawingsAreSavedAsTheSuffixSays()
    {
        const Page page(&m_session);
        QAction* save = nullptr;
        QStringList entries;
        for (QAction* action : page.diagram()->actions()) {
            entries << action->text();
            if (action->text() == "Save as drawing\u2026")
                save = action;
        }
        QVERIFY2(save, qPrintable(entries.join(u'|')));
        m_dialogs.cancelFile();
        save->trigger();
        QCOMPARE(m_dialogs.takeRecord(),
                 QStringList("Save As|" + m_session.outputStem() +
                             "_2_max.pdf|PDF Files (*.pdf);;SVG Files (*.svg)"));
        const auto saved = [&](const char* name, const char* filter) {
            const QString path = m_folder.filePath(name);
            m_dialogs.onDialog([&](QDialog* dialog) {
                qobject_cast<QFileDialog*>(dialog)->selectNameFilter(filter);
                dialog->findChild<QLineEdit*>("fileNameEdit")->setText(path);
                QMetaObject::invokeMethod(dialog, "accept");
            });
            save->trigger();
            return contentsOf(path).left(5);
        };
        const char* const pdf = "PDF Files (*.pdf)";
        const char* const svg = "SVG Files (*.svg)";
        QCOMPARE(saved("a.svg", pdf), "<?xml");
        QCOMPARE(saved("a.PDF", svg), "%PDF-");
        QCOMPARE(saved("b.other", svg), "<?xml");
        QCOMPARE(saved("b", pdf), "%PDF-");
        m_dialogs.takeRecord();
        m_dialogs.chooseFile("/dev/full");
        save->trigger();
        QCOMPARE(m_dialogs.takeRecord().last(),
                 "Error while saving data|/dev/full: No space left on device");
    }

    void imageGoesToClipboardBeforeTheDialog()
    {
        const Page page(&m_session);
        page.findChild<QScrollBar*>("horizontalScrollBarZarnelSize")->setValue(100);
        QGuiApplication::clipboard()->clear();
        QSize copied;
        m_dialogs.onDialog([&copied](QDialog* dialog) {
            copied = QGuiApplication::clipboard()->image().size();
            dialog->reject();
        });
        click(page, "ImageButton");
        const auto* columns = page.diagram()->horizontalHeader();
        const auto* rows = page.diagram()->verticalHeader();
        const QSize whole(rows->width() + columns->length(), columns->height() + rows->length());
        QCOMPARE(copied / qGuiApp->devicePixelRatio(), whole);
        const auto saved = QImage::fromData(exported(page, "ImageButton"), "PNG");
        QCOMPARE(saved.size(), copied);
        QCOMPARE(saved.convertToFormat(QImage::Format_RGB32),
                 QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32));
    }
};

QTEST_MAIN(TestFactorForm)
#include "tst_factorform.moc"
