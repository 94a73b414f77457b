// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/asciidatareader.h"
#include "support/dialogscript.h"
#include "support/testsettings.h"
#include "views/dataform.h"
#include "views/fakesession.h"
#include "views/rawdataexport.h"

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>

#include <cfloat>
#include <cmath>
#include <cstring>
#include <memory>
#include <random>
#include <sstream>

namespace {

QStringList headers(const QTableView* view, Qt::Orientation orientation)
{
    QStringList texts;
    const auto* model = view->model();
    const int count = orientation == Qt::Horizontal ? model->columnCount() : model->rowCount();
    for (int section = 0; section < count; ++section)
        texts << model->headerData(section, orientation).toString();
    return texts;
}

QStringList row(const QTableView* view, int number)
{
    QStringList texts;
    for (int column = 0; column < view->model()->columnCount(); ++column)
        texts << view->model()->index(number, column).data().toString();
    return texts;
}

bool sameNumbers(const pelmora::Matrix& left, const pelmora::Matrix& right)
{
    if (left.rows() != right.rows() || left.columns() != right.columns())
        return false;
    for (int i = 0; i < left.rows(); ++i)
        for (int j = 0; j < left.columns(); ++j)
            if (left[i][j] != right[i][j] || std::signbit(left[i][j]) != std::signbit(right[i][j]))
                return false;
    return true;
}

bool readBack(const QString& path, AsciiData& data)
{
    AsciiDataReader reader(path, nullptr);
    return reader.readFile() && reader.checkConsistency() &&
           data.allocate(reader.lineCount(), reader.columnCount()) && reader.getData(data);
}

} // namespace

class TestDataForm : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void showsTheMatrixAsRead();
    void describesTheVariables();
    void tellsWhatHasNoCorrelations_data();
    void tellsWhatHasNoCorrelations();
    void orientationTurnsNamesAndStatistics();
    void aRefusedOrientationIsTakenBack();
    void namesReachTheSession();
    void cancelledNamesChangeNothing();
    void aSavedFileReadsBackExactly();
    void everyDoubleSurvivesTheSave();
    void failedSavesAreTold_data();
    void failedSavesAreTold();
    void theSessionMayGoFirst();
    void aShownPageMayGo();

private:
    template <class Widget>
    Widget* child(const char* name) const
    {
        return m_form->findChild<Widget*>(QLatin1String(name));
    }
    QTableView* table() const { return child<QTableView>("tableData"); }
    QTableView* statistics() const { return child<QTableView>("tableStatistics"); }
    void click(const char* button) const { child<QAbstractButton>(button)->click(); }
    void fill(std::initializer_list<std::initializer_list<double>> rows);

    TestSettings m_settings;
    DialogScript m_dialogs;
    std::unique_ptr<FakeSession> m_session;
    std::unique_ptr<DataForm> m_form;
};

void TestDataForm::initTestCase()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral("No matching signal")));
}

void TestDataForm::init()
{
    m_settings.clear();
    m_form.reset();
    m_session = std::make_unique<FakeSession>();
    m_form = std::make_unique<DataForm>(m_session.get(), nullptr);
    fill({{1, 2, 3.125}, {-5, 2, 1e3}});
    m_dialogs.takeRecord();
}

void TestDataForm::fill(std::initializer_list<std::initializer_list<double>> rows)
{
    setValues(m_session->data, rows);
    m_session->names = VariableNames(std::max(m_session->data.rows(), m_session->data.cols()));
    m_session->names.set(1, "B");
    m_session->data.setNames(m_session->names);
    m_form->fill(m_session->data);
}

void TestDataForm::showsTheMatrixAsRead()
{
    QCOMPARE(headers(table(), Qt::Horizontal), QStringList({"1", "B", "3"}));
    QCOMPARE(headers(table(), Qt::Vertical), QStringList({"1", "2"}));
    QCOMPARE(row(table(), 0), QStringList({"1.00", "2.00", "3.13"}));
    QCOMPARE(row(table(), 1), QStringList({"-5.00", "2.00", "1000.00"}));
}

void TestDataForm::describesTheVariables()
{
    QCOMPARE(headers(statistics(), Qt::Horizontal),
             QStringList({"Mean", "Standard\ndeviation", "Minimum", "Maximum", "Note"}));
    QCOMPARE(headers(statistics(), Qt::Vertical), QStringList({"1", "B", "3"}));
    QCOMPARE(row(statistics(), 0), QStringList({"-2.00", "3.00", "-5.00", "1.00", ""}));
    QCOMPARE(row(statistics(), 1), QStringList({"2.00", "0.00", "2.00", "2.00", "constant"}));
}

void TestDataForm::tellsWhatHasNoCorrelations_data()
{
    QTest::addColumn<QVector<double>>("second");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << QVector<double>{2, 3, 4, 5, 6, 7} << QString();
    QTest::newRow("one") << QVector<double>{2, 1, 4, 5, 6, 7}
                         << QStringLiteral(
                                "Constant variables, whose correlations cannot be formed: B");
    QTest::newRow("list is cut")
        << QVector<double>{1, 1, 1, 1, 1, 1}
        << QStringLiteral(
               "Constant variables, whose correlations cannot be formed: 1, B, 3, 4, 5, \u2026");
    QTest::newRow("one case") << QVector<double>{}
                              << QStringLiteral(
                                     "There are too few cases: correlations cannot be formed.");
}

void TestDataForm::tellsWhatHasNoCorrelations()
{
    QFETCH(QVector<double>, second);
    pelmora::Matrix values(second.isEmpty() ? 1 : 2, 6);
    std::fill_n(values[0], 6, 1.0);
    std::copy(second.begin(), second.end(), values[values.rows() - 1]);
    m_session->data.setMatrix(std::move(values));
    m_session->data.setNames(VariableNames::fromTexts({"1", "B", "3", "4", "5", "6"}));
    m_form->fill(m_session->data);
    const auto* label = child<QLabel>("labelNoCorrelations");
    QTEST(label->isHidden() ? QString() : label->text(), "text");
    if (second.isEmpty())
        QCOMPARE(row(statistics(), 0).last(), QStringLiteral("too few cases"));
}

void TestDataForm::orientationTurnsNamesAndStatistics()
{
    click("radioButtonRowWise");
    QVERIFY(m_session->rowWise);
    QCOMPARE(headers(table(), Qt::Horizontal), QStringList({"1", "2", "3"}));
    QCOMPARE(headers(table(), Qt::Vertical), QStringList({"1", "B"}));
    QCOMPARE(headers(statistics(), Qt::Vertical), QStringList({"1", "B"}));
    QCOMPARE(row(statistics(), 0), QStringList({"2.04", "0.87", "1.00", "3.13", ""}));
    QVERIFY(child<QLabel>("labelNoCorrelations")->isHidden());
    click("radioButtonColumnWise");
    QVERIFY(!m_session->rowWise);
    describesTheVariables();
}

void TestDataForm::aRefusedOrientationIsTakenBack()
{
    m_session->refuses = true;
    click("radioButtonRowWise");
    QVERIFY(child<QRadioButton>("radioButtonColumnWise")->isChecked());
    showsTheMatrixAsRead();
}

void TestDataForm::namesReachTheSession()
{
    m_dialogs.onDialog([](QDialog* dialog) {
        auto* names = dialog->findChild<QTableWidget*>();
        QCOMPARE(names->rowCount(), 3);
        QCOMPARE(names->item(1, 0)->text(), QStringLiteral("B"));
        names->item(2, 0)->setText(QStringLiteral("\u00c5 \u0151"));
        dialog->accept();
    });
    click("pushButtonEditNames");
    QCOMPARE(m_dialogs.takeRecord(), QStringList({"Please enter names of variables"}));
    // What a file can hold is what is seen.
    QCOMPARE(m_session->names.text(2), QStringLiteral("\u00c5 ?"));
    QCOMPARE(headers(table(), Qt::Horizontal).last(), QStringLiteral("\u00c5 ?"));
    QCOMPARE(headers(statistics(), Qt::Vertical).last(), QStringLiteral("\u00c5 ?"));
}

void TestDataForm::cancelledNamesChangeNothing()
{
    m_dialogs.onDialog([](QDialog* dialog) {
        dialog->findChild<QTableWidget*>()->item(1, 0)->setText(QStringLiteral("changed"));
        dialog->reject();
    });
    click("pushButtonEditNames");
    QCOMPARE(m_session->names.text(1), QStringLiteral("B"));
    showsTheMatrixAsRead();
}

void TestDataForm::aSavedFileReadsBackExactly()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("saved.dat"));
    fill({{0.1, 1e-300, -0.0}, {1.0 / 3.0, 1e22, -123456789.987654321}});
    m_session->names.set(2, "K\xf6rper h\xf6"
                            "he");
    m_session->data.setNames(m_session->names);
    m_dialogs.chooseFile(path);
    click("pushButtonSave");
    QCOMPARE(m_dialogs.takeRecord(),
             QStringList(QStringLiteral("Please select folder and filename to save values|%1|*.dat")
                             .arg(m_session->stem)));
    AsciiData data;
    QVERIFY(readBack(path, data));
    QVERIFY(sameNumbers(data.matrix(), m_session->data.matrix()));
    QCOMPARE(data.names().texts(), m_session->names.texts());
}

void TestDataForm::everyDoubleSurvivesTheSave()
{
    std::mt19937_64 random(7);
    AsciiData data;
    pelmora::Matrix values(50, 40);
    for (int i = 0; i < values.rows(); ++i) {
        for (int j = 0; j < values.columns(); ++j) {
            double value = NAN;
            while (!std::isfinite(value)) {
                const auto bits = random();
                std::memcpy(&value, &bits, sizeof value);
            }
            values[i][j] = value;
        }
    }
    const double special[] = {0.0, -0.0, DBL_MIN, 5e-324, DBL_MAX, -DBL_MAX, 0.1 + 0.2, 1e23};
    std::copy(std::begin(special), std::end(special), values[0]);
    data.setMatrix(std::move(values));

    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("doubles.dat"));
    std::ostringstream out;
    writeRawData(out, data);
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QByteArray::fromStdString(out.str()));
    file.close();
    AsciiData back;
    QVERIFY(readBack(path, back));
    QVERIFY(sameNumbers(back.matrix(), data.matrix()));
}

void TestDataForm::failedSavesAreTold_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("box");
    QTest::newRow("full disk") << QStringLiteral("/dev/full")
                               << QStringLiteral(
                                      "Error while trying to save file|Cannot write to file!");
    QTest::newRow("no such folder")
        << QStringLiteral("/nowhere/saved.dat")
        << QStringLiteral("Error opening file|Cannot open file /nowhere/saved.dat");
}

void TestDataForm::failedSavesAreTold()
{
    QFETCH(QString, path);
    if (path == QStringLiteral("/dev/full") && !QFile::exists(path))
        QSKIP("needs /dev/full");
    m_dialogs.chooseFile(path);
    click("pushButtonSave");
    QTEST(m_dialogs.takeRecord().last(), "box");
    showsTheMatrixAsRead();
}

void TestDataForm::theSessionMayGoFirst()
{
    m_form->show();
    m_session.reset();
    m_form->grab();
    QCOMPARE(table()->model()->rowCount(), 0);
    QCOMPARE(statistics()->model()->rowCount(), 0);
    QVERIFY(!child<QPushButton>("pushButtonSave")->isEnabled());
}

void TestDataForm::aShownPageMayGo()
{
    m_form->show();
    m_form->grab();
    m_form.reset();
}

QTEST_MAIN(TestDataForm)
#include "tst_dataform.moc"
