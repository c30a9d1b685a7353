#include "drawing/ComandiElementi.h"

#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/GestioneErrori.h"
#include "base/Misure.h"
#include "base/Numeri.h"
#include "base/Utilita.h"
#include "drawing/AmbienteDisegno.h"
#include "drawing/CodiciComando.h"
#include "input/QuadroMessaggi.h"
#include "model/ElementoAttivo.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "model/TracciaAzioni.h"
#include "panels/Elaborazioni.h"
#include "panels/EtichettaLista.h"
#include "panels/QuadroMostraLista.h"
#include "panels/QuadroScriviTesto.h"

#include <QLabel>

#include <algorithm>
#include <cmath>
#include <limits>

ComandiElementi::Misura ComandiElementi::MisuraTesto() const {
    Superficie& q = a_.Quadro;
    // The whole font of the record, not only its size: the frame must fit the words.
    q.FontName = FontCorrente;
    q.FontSize = float(DimensioneFontCorrente);
    q.FontBold = GrassettoCorrente == 1;
    q.FontItalic = CorsivoCorrente == 1;
    double larghezza = 0;
    for (int16_t riga = 1; riga <= NumeroRigheScritte; ++riga)
        larghezza = std::max(larghezza, double(q.TextWidth(RigheScritte.at(riga))));
    const double primaRiga = q.TextHeight(RigheScritte.at(1));
    // Several lines measure half their height: kept as the program has always done it.
    const double altezza = NumeroRigheScritte == 1 ? primaRiga : primaRiga * NumeroRigheScritte / 2;
    // Measured wide: a long line passes 32767 twips, and is refused, not lost.
    return {std::llround(larghezza), std::llround(altezza)};
}

bool ComandiElementi::Misura::Centrabile() const {
    // Every corner of the frame, centred, must be a 16-bit position: the
    // shifts and the replay take it so.
    constexpr int64_t Minimo = std::numeric_limits<int16_t>::min();
    constexpr int64_t Massimo = std::numeric_limits<int16_t>::max();
    const int64_t sinistra = Predefiniti::CentroX - Larghezza / 2;
    const int64_t alto = Predefiniti::CentroY - Altezza / 2;
    return Larghezza >= 0 && Altezza >= 0 && sinistra >= Minimo && alto >= Minimo &&
           sinistra + Larghezza <= Massimo && alto + Altezza <= Massimo;
}

void ComandiElementi::Centra(int32_t larghezza, int32_t altezza) {
    RecordAzione& e = ElementoInCostruzione;
    e.XInizio = Predefiniti::CentroX - larghezza / 2;
    e.YInizio = Predefiniti::CentroY - altezza / 2;
    e.XFine = e.XInizio + larghezza;
    e.YFine = e.YInizio + altezza;
}

void ComandiElementi::InMovimento(int16_t primitiva) {
    ComandoModifica = TastoDisegno::MuoveElementoAttivo;
    a_.Motore.TastoCorrente = TastoDisegno::MuoveElementoAttivo;
    PrimitivaAttiva = primitiva;
    a_.AggiornaCorone();
    a_.ImpostaColoreCorona(TastoDisegno::MuoveElementoAttivo, ColoriCorona::Rosso);
    a_.ImpostaColoreCorona(primitiva, ColoriCorona::Blu);
    ElementoRiaperto = 0;
    a_.ApriSceltaDirezione();
}

void ComandiElementi::ScritturaTesti() {
    // A text taken back into the hands opens on its own lines.
    const bool riaperto =
        ElementoRiaperto == 1 && ElementoInCostruzione.TipoAzione == TipiAzione::Testo;
    if (!riaperto) {
        NumeroRigheScritte = 0;
        RigheScritte = QStringList{QString()};
    }
    Misura misura;
    for (;;) {
        ParcheggiaMouse();
        ScriviTesto(0);
        // The keyboard's own steps have moved the mark.
        SezioneCorrente = MarcaDisegno::ScritturaTesti;
        if (NumeroRigheScritte == 0) {
            a_.Riprendi();
            return;
        }
        misura = MisuraTesto();
        if (misura.Centrabile()) break;
        // Too large for the drawing: said, and the keyboard opens again on
        // the same words, so that nothing written with the switch is lost.
        ParcheggiaMouse();
        Messaggio(Righe({QStringLiteral("ATTENZIONE!"),
                         QStringLiteral("Il Testo è troppo grande per il Disegno!"),
                         QStringLiteral("Si prega di accorciare le righe"),
                         QStringLiteral("o di ridurne il numero."),
                         QStringLiteral("Premere «OK» per proseguire!")}),
                  1, 1);
    }
    RecordAzione e;
    e.TipoAzione = TipiAzione::Testo;
    e.SpessLinea = 1;
    e.InterlineaTesto = InterlineaCorrente;
    for (int16_t riga = 1; riga <= NumeroRigheScritte; ++riga)
        e.Testo += RigheScritte.at(riga);
    e.NomeFont = FontCorrente;
    e.SizeFont = DimensioneFontCorrente;
    e.Grassetto = GrassettoCorrente;
    e.Corsivo = CorsivoCorrente;
    ElementoInCostruzione = e;
    Centra(int32_t(misura.Larghezza), int32_t(misura.Altezza));

    Superficie& q = a_.Quadro;
    q.AutoRedraw = true;
    q.AutoRedraw = false;
    q.DrawWidth = 1;
    q.DrawStyle = 2;
    // Only the first text of a visit carries a gap in its record; from here on
    // every text is set with none.
    InterlineaCorrente = 0;
    PrimitivaAttiva = TastoDisegno::ScritturaTesti;
    TracciaElementoAttivo(q);
    q.CurrentY = float(ElementoInCostruzione.YInizio);
    InMovimento(TastoDisegno::ScritturaTesti);
}

void ComandiElementi::CaricaQuadroImmagine(const QString& percorso) {
    EseguiPassi({{MarcaDisegno::ImportaImmagine, [&] {
                      try {
                          const QImage figura = Superficie::LoadPicture(percorso);
                          ImmaginiSegnalate.remove(percorso);
                          a_.QuadroImmagine->resize(figura.size());
                      } catch (const ErroreZanto&) {
                          // Told once here; the replay of this element stays silent.
                          ImmaginiSegnalate.insert(percorso);
                          throw;
                      }
                  }}});
}

void ComandiElementi::ImportaImmagine() {
    TipoLista = GenereLista::Immagini;
    ScegliDaLista();
    if (VoceScelta.isEmpty()) {
        ComandoModifica = 0;
        a_.Riprendi();
        return;
    }
    const int64_t numero = LeggiEtichetta(VoceScelta).Valore();
    if (numero <= 0 || numero >= ElencoFile.size()) {
        a_.Riprendi();
        return;
    }
    const QString percorso = ElencoFile.at(numero);
    CaricaQuadroImmagine(percorso);
    RecordAzione e;
    e.TipoAzione = TipiAzione::Immagine;
    e.SpessLinea = 1;
    e.NomeFileImmagine = percorso;
    ElementoInCostruzione = e;
    Centra(a_.QuadroImmagine->width() * TwipsPerPixel, a_.QuadroImmagine->height() * TwipsPerPixel);

    Superficie& q = a_.Quadro;
    q.AutoRedraw = true;
    q.AutoRedraw = false;
    PrimitivaAttiva = TastoDisegno::ImportaImmagine;
    q.DrawWidth = 1;
    q.DrawStyle = 2;
    TracciaElementoAttivo(q);
    InMovimento(TastoDisegno::ImportaImmagine);
}
