// A camera's photo of 12 megapixels placed on the drawing: the first time it
// is read and drawn, then every replay after it. Measured against reading the
// same file whole, which is what any picture program pays to show it.

#include "Misura.h"

#include "model/RecordAzione.h"
#include "model/Superficie.h"
#include "model/TracciaAzioni.h"

#include <QGuiApplication>
#include <QImage>
#include <QImageReader>
#include <QPainter>
#include <QTemporaryDir>

#include <cstdio>

namespace {

// A photo-like picture: smooth shades and some edges, so the JPEG is not trivial.
QImage Foto(int variante) {
    QImage foto(4000, 3000, QImage::Format_RGB32);
    QPainter p(&foto);
    QLinearGradient sfondo(0, 0, 4000, 3000);
    sfondo.setColorAt(0, QColor(30 + variante * 20, 90, 160));
    sfondo.setColorAt(1, QColor(240, 200, 80));
    p.fillRect(foto.rect(), sfondo);
    for (int i = 0; i < 60; ++i) {
        p.setBrush(QColor((i * 37 + variante) % 256, (i * 91) % 256, (i * 53) % 256));
        p.drawEllipse(QPoint((i * 397) % 4000, (i * 211) % 3000), 150 + i * 7, 120 + i * 5);
    }
    return foto;
}

RecordAzione Figura(const QString& percorso) {
    const QSize misura = Superficie::LoadPicture(percorso).size() * TwipsPerPixel;
    RecordAzione a;
    a.TipoAzione = TipiAzione::Immagine;
    a.XInizio = Predefiniti::CentroX - misura.width() / 2;
    a.YInizio = Predefiniti::CentroY - misura.height() / 2;
    a.XFine = a.XInizio + misura.width();
    a.YFine = a.YInizio + misura.height();
    a.NomeFileImmagine = percorso;
    return a;
}

} // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    QTemporaryDir cartella;
    constexpr int NumeroFoto = 5;
    QStringList percorsi;
    for (int i = 0; i < NumeroFoto; ++i) {
        percorsi << cartella.filePath(QStringLiteral("foto%1.jpg").arg(i));
        Foto(i).save(percorsi.last(), "JPG", 90);
    }
    Superficie tela(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);

    // Each photo once, as the command places it: read, then drawn on the canvas.
    std::vector<double> prime;
    QList<RecordAzione> lista{RecordAzione{}};
    for (const QString& percorso : percorsi)
        prime.push_back(DurataMs([&] {
            lista.append(Figura(percorso));
            tela.AutoRedraw = true;
            TracciaAzione(tela, lista.last());
            tela.AutoRedraw = false;
        }));
    const double prima = Mediana(prime);

    // A replay of the drawing with the last photo in it.
    const QList<RecordAzione> disegno{RecordAzione{}, lista.last()};
    const double ripresa = MedianaMs(21, [&](int) {
        tela.ImmagineVuota();
        TracciaLista(tela, disegno, 1, 1);
    });

    const double intera = MedianaMs(5, [&](int i) {
        QImageReader lettore(percorsi[i % NumeroFoto]);
        const QImage letta = lettore.read();
        if (letta.isNull()) std::printf("lettura fallita\n");
    });

    Stampa("figura_prima_volta_ms", prima, "ms");
    Stampa("figura_ripresa_ms", ripresa, "ms");
    Stampa("figura_lettura_intera_ms", intera, "ms");
    Stampa("figura_prima_su_lettura_intera", prima / intera, "x");
    std::printf("targets: first time under 300 ms, every replay under 20 ms\n");
    return prima < 300 && ripresa < 20 ? 0 : 1;
}
