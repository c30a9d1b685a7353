#include "start/BaseVuoto.h"

#include "start/Misure.h"

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
    ImmagineScrittaZANTO->setPixmap(Disegna(QStringLiteral(":/logo-zanto.svg"), QSize(600, 160)));
    ImmagineScrittaZANTO->setGeometry((schermo.width() - 600) / 2, schermo.height() / 2 - 200, 600,
                                      160);

    AttendereStrBV =
        new QLabel(QStringLiteral("ATTENDERE: Programma «ZANTO» in caricamento!"), this);
    QFont carattere(QStringLiteral("Arial"), 20);
    carattere.setBold(true);
    AttendereStrBV->setFont(carattere);
    AttendereStrBV->setAlignment(Qt::AlignCenter);
    QPalette pt = AttendereStrBV->palette();
    pt.setColor(QPalette::WindowText, Qt::white);
    AttendereStrBV->setPalette(pt);
    AttendereStrBV->setGeometry(0, schermo.height() / 2, schermo.width(), 60);

    AttendereImgBV = new QLabel(this);
    AttendereImgBV->setPixmap(Disegna(QStringLiteral(":/icone/disegno.svg"), QSize(64, 64)));
    AttendereImgBV->setGeometry((schermo.width() - 64) / 2, schermo.height() / 2 + 80, 64, 64);
}
