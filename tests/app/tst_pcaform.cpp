// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "apptest.h"

#include <QAbstractItemModel>
#include <QClipboard>
#include <QGuiApplication>
#include <QSpinBox>
#include <QTableView>

class TestPcaForm : public AppTest
{
    Q_OBJECT

private:
    /// Reads correlations, which leaves the "PCA" page in front.
    void open(const QByteArray& matrix = "1 0.6\n0.6 1\n")
    {
        m_file = std::make_unique<SampleFile>("r.x.cor", matrix);
        read("actionCorrASCII", m_file->path());
        m_dialogs.takeRecord();
    }
    const QAbstractItemModel* model(const QString& table) const
    {
        return find<QTableView>(table)->model();
    }
    QStringList texts(const QString& table) const
    {
        QStringList result;
        for (int i = 0; i < model(table)->rowCount(); ++i) {
            for (int j = 0; j < model(table)->columnCount(); ++j)
                result << model(table)->index(i, j).data().toString();
        }
        return result;
    }

    std::unique_ptr<SampleFile> m_file;

private slots:
    void tablesShowTheDecomposition()
    {
        open("1 0.6\n0.6 1\nvname 1 \xC4ge\nvname 2 Net income\n");
        QCOMPARE(texts("tableWidgetEigenwerte"),
                 QStringList({"1.60", "0.40", "80.00", "20.00", "80.00", "100.00"}));
        QStringList loadings = texts("tableWidgetFaktorladungen");
        QCOMPARE(loadings.replaceInStrings("-", ""), QStringList({"0.89", "0.45", "0.89", "0.45"}));

        const auto* vectors = model("tableWidgetEigenvektoren");
        QCOMPARE(vectors->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Factor F2"));
        QCOMPARE(vectors->headerData(1, Qt::Vertical).toString(), QStringLiteral("Net income"));
        QCOMPARE(model("tableWidgetEigenwerte")->headerData(2, Qt::Vertical).toString(),
                 QStringLiteral("Cumulative\nVariance[%]"));

        for (auto* table : pages()->currentWidget()->findChildren<QTableView*>()) {
            table->selectAll();
            table->actions().first()->trigger();
            const auto* copied = table->model();
            QVERIFY(QGuiApplication::clipboard()->text().contains(
                copied->index(0, 0).data().toString() + '\t' +
                copied->index(0, 1).data().toString()));
        }
    }

    void numberOfFactorsIsPreset_data()
    {
        const DataRows<QByteArray, int, int> row("matrix", "preset", "maximum");
        row("eigenvalues of 1", "1 0 0\n0 1 0\n0 0 1\n", 3, 3);
        row("one above 1", "1 .9 .9\n.9 1 .9\n.9 .9 1\n", 2, 3);
        row("one variable", "1\n", 1, 1);
    }

    void numberOfFactorsIsPreset()
    {
        QFETCH(QByteArray, matrix);
        open(matrix);
        QTEST(find<QSpinBox>("spinBoxNumberOfFactors")->value(), "preset");
        QTEST(find<QSpinBox>("spinBoxNumberOfFactors")->maximum(), "maximum");
    }

    void processingAddsPagesInOrder()
    {
        open();
        auto* process = find<QPushButton>("processButton");
        process->click();
        find<QCheckBox>("checkBoxPelmora")->setChecked(false);
        process->click();
        QCOMPARE(m_dialogs.takeRecord(),
                 QStringList("Error|Please select at least one type of rotation"));
        find<QCheckBox>("checkBoxVarimax")->setChecked(true);
        find<QCheckBox>("checkBoxUnrotated")->setChecked(true);
        process->click();
        QCOMPARE(titles(pages()),
                 QStringList({"Correlations", "PCA", "Pelmora[2]", "Varimax[2]", "Initial[2]"}));
    }

    void exportsAreColumnsWithTitles()
    {
        open("1 0.6\n0.6 1\nvname 1 \xC4ge\nvname 2 Net \"income\"\n");
        const QByteArray values = "Factor\tEigenvalue\tVariance\tCumulative\n"
                                  "1\t1.60\t80.00\t80.00\n"
                                  "2\t0.40\t20.00\t100.00\n";
        const QByteArray vectors = "Variable\tF1\tF2\n"
                                   "\"\xC4ge\"\t0.71\t0.71\n"
                                   "\"Net 'income'\"\t0.71\t0.71\n";
        const QByteArray loadings = QByteArray(vectors).replace("0.71\t0.71", "0.89\t0.45");
        QCOMPARE(saved("pushButtonExportEigenwerte"), values);
        QCOMPARE(saved("pushButtonExportEigenvektoren").replace('-', ""), vectors);
        QCOMPARE(saved("pushButton").replace('-', ""), loadings);
        const QString asked =
            "Please select folder and filename to save values|" + m_file->folder() + "/r.x|*.";
        QCOMPARE(m_dialogs.takeRecord(),
                 QStringList({asked + "eig", asked + "vec", asked + "ini"}));

        m_dialogs.chooseFile("/dev/full");
        find<QPushButton>("pushButton")->click();
        QCOMPARE(m_dialogs.takeRecord().last(),
                 QStringLiteral(
                     "Error while trying to save file|Cannot write to file!|/dev/full: No space "
                     "left on device"));
    }
};

QTEST_MAIN(TestPcaForm)
#include "tst_pcaform.moc"
