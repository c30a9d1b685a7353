#include "base/BaseVuoto.h"

#include "base/Misure.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPainter>
#include <QPixmap>
#include <QScreen>
#include <QSvgRenderer>

namespace {
QPixmap Disegna(const QString& risorsa, QSize dimensione) {
    QPixmap immagine(dimensione);
    immagine.fill(Qt::transparent);
    QSvgRenderer svg(risorsa);
    QPainter p(&immagine);
    svg.render(&p);
    return immagine;
}
} // namespace

BaseVuoto::BaseVuoto(QWidget* genitore) : QWidget(genitore) {
    setWindowTitle(QStringLiteral("Programma «ZANTO»"));
    setWindowFlag(Qt::FramelessWindowHint);
    QPalette p = palette();
    p.setColor(QPalette::Window, ColoreRGB(0x1A3D7C));
    setPalette(p);
    setAutoFillBackground(true);
    const QRect schermo = QGuiApplication::primaryScreen()->geometry();
    setGeometry(schermo);

    ImmagineScrittaZANTO = new QLabel(this);
    const QSize logo(Px(9000), Px(2400));
    ImmagineScrittaZANTO->setPixmap(Disegna(QStringLiteral(":/logo-zanto.svg"), logo));
    ImmagineScrittaZANTO->setGeometry((schermo.width() - logo.width()) / 2,
                                      schermo.height() / 2 - Px(3000), logo.width(), logo.height());

    AttendereStrBV =
        new QLabel(QStringLiteral("ATTENDERE: Programma «ZANTO» in caricamento!"), this);
    AttendereStrBV->setFont(Carattere(QStringLiteral("Arial"), 20, true));
    AttendereStrBV->setAlignment(Qt::AlignCenter);
    QPalette pt = AttendereStrBV->palette();
    pt.setColor(QPalette::WindowText, Qt::white);
    AttendereStrBV->setPalette(pt);
    AttendereStrBV->setGeometry(0, schermo.height() / 2, schermo.width(), Px(900));

    AttendereImgBV = new QLabel(this);
    const int lato = Px(960);
    AttendereImgBV->setPixmap(Disegna(QStringLiteral(":/icone/disegno.svg"), QSize(lato, lato)));
    AttendereImgBV->setGeometry((schermo.width() - lato) / 2, schermo.height() / 2 + Px(1200), lato,
                                lato);
}
