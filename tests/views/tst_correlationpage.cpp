// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "support/datarows.h"
#include "views/corrform.h"
#include "views/fakesession.h"
#include "views/loadings.h"
#include "views/shadedelegate.h"
#include "views/viewtest.h"
#include "views/widgets.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QHelpEvent>
#include <QTextDocumentFragment>
#include <QToolTip>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/// The page of the correlations 1, 0.5 and -1, under given names.
struct Page : QWidget
{
    explicit Page(const QVector<QString>& names)
    {
        matrix.setMatrix(matrixOf({{1, 0.5, -1}, {0.5, 1, 0}, {-1, 0, 1}}));
        matrix.setNames(VariableNames::fromTexts(names));
        correlations.fill(matrix);
    }

    QTableView* table() const { return findChild<QTableView*>("tableCorrelations"); }
    QCheckBox* shade() const { return findChild<QCheckBox*>("checkBoxShade"); }
    QRgb ground(int row, int column)
    {
        const QRect cell = table()->visualRect(table()->model()->index(row, column));
        return table()->viewport()->grab().toImage().pixel(cell.topLeft() + QPoint(1, 1));
    }

    FakeSession session;
    CorrelationData matrix;
    CorrForm correlations{&session, this};
};

QPalette paletteOf(const QColor& base, const QColor& text, const QColor& highlight)
{
    QPalette palette;
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::Highlight, highlight);
    return palette;
}

/// Relative luminance and contrast as the guidelines for accessible web pages define them.
double luminance(const QColor& colour)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& one, const QColor& other)
{
    const auto [low, high] = std::minmax({luminance(one), luminance(other)});
    return (high + 0.05) / (low + 0.05);
}

} // namespace

class TestCorrelationPage : public ViewTest
{
    Q_OBJECT

private slots:
    void longNamesAreTurned_data()
    {
        const DataRows<QString, bool> row("name", "turned");
        row("short", "X", false);
        row("long", "Paragraph comprehension", true);
        row("endless", "<b>" + QString(500, 'x'), true);
    }

    void longNamesAreTurned()
    {
        QFETCH(QString, name);
        QFETCH(bool, turned);
        const Page page({"1", name, "3"});
        const auto* names = page.table()->horizontalHeader();
        // The minus sign of the others is what makes them wider.
        QVERIFY(page.table()->columnWidth(1) < page.table()->columnWidth(0));
        QCOMPARE(names->sizeHint().height() > 2 * names->fontMetrics().height(), turned);
        QVERIFY(names->maximumHeight() < 40 * names->fontMetrics().averageCharWidth());
        // Only names that are cut have tool tips, and these show markup as it is.
        QHelpEvent help(QEvent::ToolTip, QPoint(names->sectionViewportPosition(1) + 1, 1), {});
        QCoreApplication::sendEvent(names->viewport(), &help);
        QCOMPARE(QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText(),
                 turned ? name : QString());
    }

    void groundsTellTheSizeOfANumber_data()
    {
        const DataRows<QPalette> row("palette");
        row("light", paletteOf(Qt::white, Qt::black, QColor(48, 140, 198)));
        row("dark", paletteOf(QColor(35, 35, 35), Qt::white, QColor(42, 130, 218)));
    }

    void groundsTellTheSizeOfANumber()
    {
        QFETCH(QPalette, palette);
        Page page({"1", "2", "3"});
        page.setPalette(palette);
        const auto shade = [&palette](double value) { return shadeOf(value, palette).rgb(); };
        const QRgb base = palette.color(QPalette::Base).rgb();
        QCOMPARE(page.ground(1, 2), base);
        QCOMPARE(page.ground(0, 0), shade(1));
        QCOMPARE(page.ground(0, 1), shade(0.5));
        QCOMPARE(page.ground(2, 0), shade(1));
        QVERIFY(shade(0.5) != base && shade(0.5) != shade(1));
        QCOMPARE(shade(-7), shade(1));
        QCOMPARE(shade(std::numeric_limits<double>::quiet_NaN()), base);
        QVERIFY(contrast(palette.color(QPalette::Text), shadeOf(1, palette)) > 4.5);
    }

    void shadingIsKeptForTheRun()
    {
        Page page({"1", "2", "3"});
        QVERIFY(page.shade()->isChecked());
        page.shade()->click();
        QCOMPARE(page.ground(0, 0), page.palette().color(QPalette::Base).rgb());
        Page next({"1", "2", "3"});
        QVERIFY(!next.shade()->isChecked());
        QCOMPARE(next.ground(0, 0), next.palette().color(QPalette::Base).rgb());
        next.shade()->click();
        QVERIFY(Page({"1", "2", "3"}).shade()->isChecked());
    }
};

QTEST_MAIN(TestCorrelationPage)
#include "tst_correlationpage.moc"
