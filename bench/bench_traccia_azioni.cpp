// Full replay of a drawing of 5,000 actions of every type, 100 of them fills,
// as after an undo or a load. The same drawing with its fills as marker dots
// shows what the fills cost.

#include "DisegnoProva.h"
#include "Misura.h"

#include "model/RecordAzione.h"
#include "model/Superficie.h"
#include "model/TracciaAzioni.h"

#include <QApplication>
#include <QTemporaryDir>

namespace {

double Traccia(Superficie& quadro, const QList<RecordAzione>& lista) {
    Azioni = lista;
    NumeroAzioni = NumeroDiAzioni;
    return MedianaMs(9, [&](int) {
        quadro.ImmagineVuota();
        PrimaAzioneTraccia = 1;
        UltimaAzioneTraccia = int16_t(NumeroAzioni);
        TracciaAzioni(quadro);
    });
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QTemporaryDir cartella;
    QImage immagine(64, 48, QImage::Format_RGB32);
    immagine.fill(QColor(30, 120, 200));
    const QString figura = cartella.filePath(QStringLiteral("figura.png"));
    if (!immagine.save(figura)) return 1;

    Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    quadro.ImpostaBackColor(Predefiniti::ColoreSfondo);
    const QList<RecordAzione> lista = Disegno(figura);
    const double completa = Traccia(quadro, lista);
    Stampa("traccia_5000_azioni_con_100_colorazioni", completa, "ms");

    QList<RecordAzione> tondini = lista;
    for (RecordAzione& a : tondini)
        if (a.TipoAzione == TipiAzione::Colorazione) a.FlagPienoVuoto = FlagVuoto;
    const double senza = Traccia(quadro, tondini);
    Stampa("traccia_5000_azioni_con_100_tondini", senza, "ms");
    Stampa("rapporto_con_colorazioni_su_con_tondini", completa / senza, "x");
    return 0;
}
