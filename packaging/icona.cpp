// Renders the program's icon, drawn as SVG, to a square PNG: some menus and
// software centres want a bitmap beside the scalable picture.
#include <QByteArray>
#include <QImage>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>
#include <QTextStream>

int main(int argc, char* argv[]) {
    QTextStream errori(stderr);
    if (argc != 4) {
        errori << "uso: zanto-icona ORIGINE.svg DESTINAZIONE.png LATO\n";
        return 2;
    }
    bool numero = false;
    const int lato = QByteArray(argv[3]).toInt(&numero);
    QSvgRenderer svg(QString::fromLocal8Bit(argv[1]));
    if (!numero || lato <= 0 || !svg.isValid()) {
        errori << "zanto-icona: immagine o lato non validi\n";
        return 1;
    }
    QImage immagine(lato, lato, QImage::Format_ARGB32_Premultiplied);
    immagine.fill(Qt::transparent);
    {
        QPainter pittore(&immagine);
        pittore.setRenderHint(QPainter::Antialiasing);
        svg.render(&pittore);
    }
    if (!immagine.save(QString::fromLocal8Bit(argv[2]), "PNG")) {
        errori << "zanto-icona: impossibile scrivere " << argv[2] << '\n';
        return 1;
    }
    return 0;
}
