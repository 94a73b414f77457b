// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/asciidatareader.h"
#include "support/datarows.h"
#include "support/dialogscript.h"
#include "support/difference.h"
#include "support/samplefile.h"
#include "views/corrform.h"
#include "views/dataform.h"
#include "views/fakesession.h"
#include "views/loadings.h"
#include "views/viewtest.h"
#include "views/widgets.h"

#include <QDialog>
#include <QLabel>
#include <QRadioButton>
#include <QTableWidget>

#include <cfloat>
#include <memory>

namespace {

/// The pages of raw data, two cases of three variables, and of correlations.
struct Pages : QWidget
{
    Pages()
    {
        session->data.setMatrix(matrixOf({{1, 2, 3.125}, {-5, 2, 1e3}}));
        session->setVariableNames({"1", "B", "3"});
        raw.fill(session->data);
        matrix.setMatrix(matrixOf({{1, 0.35, 0}, {0.35, 1, 0.5}, {0, 0.5, 1}}));
        matrix.setNames(session->data.names());
        correlations.fill(matrix);
        show();
    }

    QStringList table(const char* name) const { return shown(findChild<QTableView*>(name)); }
    QStringList data() const { return table("tableData"); }
    QStringList statistics() const { return table("tableStatistics"); }

    std::unique_ptr<FakeSession> session = std::make_unique<FakeSession>();
    CorrelationData matrix;
    DataForm raw{session.get(), this};
    CorrForm correlations{session.get(), this};
};

const QStringList dataAsRead = {"|1|B|3", "1|1.00|2.00|3.13", "2|-5.00|2.00|1000.00"};
const QStringList statisticsAsRead = {"|Mean|Standard\ndeviation|Minimum|Maximum|Note",
                                      "1|-2.00|3.00|-5.00|1.00|", "B|2.00|0.00|2.00|2.00|constant",
                                      "3|501.56|498.44|3.13|1000.00|"};

} // namespace

class TestDataPages : public ViewTest
{
    Q_OBJECT

private:
    const QString m_locationKey = QStringLiteral("Export/LastCorrExportLocation");
    DialogScript m_dialogs;
    QTemporaryDir m_folder;

private slots:
    void init()
    {
        ViewTest::init();
        m_dialogs.takeRecord();
    }

    void tellWhatHasNoCorrelations()
    {
        Pages pages;
        const auto told = [&pages](pelmora::Matrix values) {
            pages.session->data.setMatrix(std::move(values));
            pages.session->data.setNames(VariableNames::fromTexts({"1", "B", "3", "4", "5", "6"}));
            pages.raw.fill(pages.session->data);
            const auto* label = pages.findChild<QLabel*>("labelNoCorrelations");
            return label->isHidden() ? QString() : label->text();
        };
        const QString constant = "Constant variables, whose correlations cannot be formed: ";
        QCOMPARE(told(matrixOf({{1, 1, 1, 1, 1, 1}})),
                 "There are too few cases: correlations cannot be formed.");
        QVERIFY(pages.statistics().last().endsWith("|too few cases"));
        QCOMPARE(told(matrixOf({{1, 1, 1, 1, 1, 1}, {1, 1, 1, 1, 1, 1}})),
                 constant + "1, B, 3, 4, 5, \u2026");
        QCOMPARE(told(matrixOf({{1, 1, 1, 1, 1, 1}, {1, 1, 1, 1, 1, 2}})),
                 constant + "1, B, 3, 4, 5");
        QCOMPARE(told(matrixOf({{1, 1}, {2, 2}})), "");
    }

    void orientationTurnsNamesAndStatistics()
    {
        Pages pages;
        const auto* means = pages.findChild<QLabel*>("labelRowWise");
        const auto requireColumns = [&] {
            QVERIFY(pages.raw.findChild<QRadioButton*>("radioButtonColumnWise")->isChecked());
            QCOMPARE(pages.data(), dataAsRead);
            QCOMPARE(pages.statistics(), statisticsAsRead);
            QVERIFY(means->isHidden());
        };
        requireColumns();
        QCOMPARE(
            pages.table("tableCorrelations"),
            QStringList({"|1|B|3", "1|1.00|0.35|0.00", "B|0.35|1.00|0.50", "3|0.00|0.50|1.00"}));
        click(pages.raw, "radioButtonRowWise");
        QVERIFY(pages.session->rowWise);
        QCOMPARE(pages.data(), QStringList({"|1|2|3", "1|1.00|2.00|3.13", "B|-5.00|2.00|1000.00"}));
        QCOMPARE(pages.statistics().value(1), "1|2.04|0.87|1.00|3.13|");
        QVERIFY(!means->isHidden());
        QCOMPARE(means->text(), "Row-wise: means are divided by the number of variables (2), not "
                                "of cases (3), so correlations differ from those of the same data "
                                "in columns.");
        click(pages.raw, "radioButtonColumnWise");
        requireColumns();
        pages.session->refuses = true;
        click(pages.raw, "radioButtonRowWise");
        requireColumns();

        // As many variables as cases: there is nothing to tell.
        pages.session->refuses = false;
        click(pages.raw, "radioButtonRowWise");
        pages.session->data.setMatrix(matrixOf({{1, 2}, {-5, 2}}));
        pages.raw.fill(pages.session->data);
        QVERIFY(means->isHidden());
    }

    void editedNamesReachEveryPage_data()
    {
        const DataRows<QString, int, QString> row("page", "result", "name");
        // Names are shown as files can hold them.
        row("raw data, cancelled", "DataForm", QDialog::Rejected, "3");
        row("raw data", "DataForm", QDialog::Accepted, "\u00c5 ?");
        row("correlations, cancelled", "CorrForm", QDialog::Rejected, "3");
        row("correlations", "CorrForm", QDialog::Accepted, "\u00c5 ?");
    }

    void editedNamesReachEveryPage()
    {
        QFETCH(QString, page);
        QFETCH(int, result);
        QFETCH(QString, name);
        const Pages pages;
        QStringList asked;
        m_dialogs.onDialog([&](QDialog* dialog) {
            const auto* names = dialog->findChild<QTableWidget*>();
            asked = shown(names);
            names->item(2, 0)->setText("\u00c5 \u0151");
            dialog->done(result);
        });
        click(*pages.findChild<QWidget*>(page), "pushButtonEditNames");
        QCOMPARE(m_dialogs.takeRecord(), QStringList("Please enter names of variables"));
        QCOMPARE(asked, QStringList({"|Name of variable:", "1|1", "2|B", "3|3"}));
        QCOMPARE(pages.statistics().last(), name + statisticsAsRead.last().mid(1));
        const auto seen = [&] {
            return pages.data().first() + pages.table("tableCorrelations").last();
        };
        QCOMPARE(seen(), "|1|B|" + name + name + "|0.00|0.50|1.00");
        emit pages.session->variableNamesChanged({"too", "few"}); // of the other orientation
        QCOMPARE(seen(), "|1|B|" + name + name + "|0.00|0.50|1.00");
    }

    void savedDataReadBackExactly()
    {
        Pages pages;
        const pelmora::Matrix values = matrixOf(
            {{0.1, 1e-300, -0.0, 5e-324}, {1.0 / 3.0, 1e22, -123456789.987654321, -DBL_MAX}});
        pages.session->data.setMatrix(values.clone());
        pages.session->setVariableNames({"1", "B", "K\u00f6rper h\u00f6he", "4"});
        pages.raw.fill(pages.session->data);
        const QString path = m_folder.filePath("saved.dat");
        m_dialogs.chooseFile(path);
        click(pages.raw, "pushButtonSave");
        AsciiDataReader reader(path, nullptr);
        QVERIFY(reader.readFile() && reader.checkConsistency());
        AsciiData back;
        QVERIFY(back.allocate(2, 4) && reader.getData(back));
        QCOMPARE(difference(back.matrix(), values), QString());
        QCOMPARE(back.names().texts(), pages.session->variableNames());
    }

    void transposedDataReadBackInColumns()
    {
        Pages pages;
        const QString path = m_folder.filePath("transposed.dat");
        click(pages.raw, "radioButtonRowWise");
        m_dialogs.chooseFile(path);
        click(pages.raw, "pushButtonSaveTransposed");
        QVERIFY(m_dialogs.takeRecord().last().contains(pages.session->outputStem() +
                                                       "_transposed.dat|*.dat"));
        QCOMPARE(contentsOf(path), "1\t-5\n2\t2\n3.125\t1000\nvname\t1\t1\nvname\t2\tB\n");
        m_dialogs.chooseFile(path);
        click(pages.raw, "radioButtonColumnWise");
        click(pages.raw, "pushButtonSaveTransposed");
        QVERIFY(contentsOf(path).endsWith("vname\t3\t3\n"));
    }

    void savedCorrelationsKeepTheirPlace()
    {
        const Pages pages;
        const QString path = m_folder.filePath("saved.cor");
        m_dialogs.chooseFile(path);
        click(pages.correlations, "pushButtonSave");
        QCOMPARE(contentsOf(path), "     1  0.35     0\n  0.35     1   0.5\n     0   0.5     1\n"
                                   "vname\t1\t1\nvname\t2\tB\nvname\t3\t3\n");
        QCOMPARE(m_settings.get(m_locationKey).toString(), path);
    }

    void savesThatFailAreTold_data()
    {
        // Without a path the dialog is cancelled.
        const DataRows<QString, QString, QString> row("page", "path", "last");
        const QString full = "Error while trying to save file|Cannot write to file!|/dev/full: No "
                             "space left on device";
        const QString nowhere = "/nowhere/<b>a</b>";
        const QString reason = '|' + nowhere + ": No such file or directory";
        const QString stem = FakeSession().outputStem();
        row("raw data, full", "DataForm", "/dev/full", full);
        row("raw data, nowhere", "DataForm", nowhere,
            "Error opening file|Cannot open file " + nowhere + reason);
        row("raw data, cancelled", "DataForm", "",
            "Please select folder and filename to save values|" + stem + "|*.dat");
        row("correlations, full", "CorrForm", "/dev/full", full);
        row("correlations, nowhere", "CorrForm", nowhere,
            "Error|Cannot open file for writing." + reason);
        row("correlations, cancelled", "CorrForm", "",
            "Export correlation matrix|" + stem + "|Correlation Files (*.cor)");
    }

    void savesThatFailAreTold()
    {
        QFETCH(QString, page);
        QFETCH(QString, path);
        const Pages pages;
        if (path.isEmpty())
            m_dialogs.cancelFile();
        else
            m_dialogs.chooseFile(path);
        click(*pages.findChild<QWidget*>(page), "pushButtonSave");
        QTEST(m_dialogs.takeRecord().last(), "last");
        QVERIFY(!m_settings.has(m_locationKey));
    }

    void outliveTheirSession()
    {
        Pages pages;
        pages.session.reset();
        pages.grab();
        for (const char* name : {"tableData", "tableStatistics", "tableCorrelations"})
            QCOMPARE(pages.table(name).size(), 1); // the column headers
        QVERIFY(!pages.raw.isEnabled() && !pages.correlations.isEnabled());
    }
};

QTEST_MAIN(TestDataPages)
#include "tst_datapages.moc"
