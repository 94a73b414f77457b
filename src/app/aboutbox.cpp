// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "app/aboutbox.h"

#include "app/product.h"

#include <QCoreApplication>
#include <QMessageBox>

namespace {

QString aboutTemplate()
{
    return QCoreApplication::translate(
               "AboutBox", "<p align=center><big>%1</big>(%7 bit)</p><p align=center>Version %2</p>"
                           "<p align=center>Built on %5 at %6</p>"
                           "<p align=center>Copyright %4 %3</p><hr>") +
           QStringLiteral(
               "<p align=center style=\"background-color:#909090; color:#000000\">%1<br>%2<br>"
               "<a style=\"color:#000000\" href=\"%3\">%3</a><br>"
               "<a style=\"color:#000000\" href=\"mailto:%4\">%4</a></p>")
               .arg(QLatin1String(product::rightsHolder), QLatin1String(product::postalAddress),
                    QLatin1String(product::webAddress), QLatin1String(product::mailAddress)) +
           QStringLiteral("<p align=center>"
                          "<img source=:/pelmora/resources/pelmora_icon3d_64x64.png></p>");
}

} // namespace

void showAboutBox(QWidget* parent)
{
    QMessageBox box(parent);
#if QT_VERSION >= QT_VERSION_CHECK(6, 6, 0)
    // A native box would show the tags.
    box.setOption(QMessageBox::Option::DontUseNativeDialog);
#endif
    box.setWindowTitle(QCoreApplication::translate("AboutBox", "About Pelmora"));
    box.setText(aboutTemplate().arg(QLatin1String(product::name), QLatin1String(product::version),
                                    QLatin1String(product::rightsHolder),
                                    QLatin1String(product::rightsYear), QLatin1String(__DATE__),
                                    QLatin1String(__TIME__), QLatin1String(product::bitWidth)));
    box.adjustSize();
    box.exec();
}
