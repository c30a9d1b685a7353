#include "panels/QuadroMostraLista.h"

#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/GestioneErrori.h"
#include "base/IconaSvg.h"
#include "base/Misure.h"
#include "base/Utilita.h"
#include "input/QuadroMessaggi.h"
#include "panels/Elaborazioni.h"
#include "panels/EtichettaLista.h"
#include "panels/QuadroScriviTesto.h"

#include <QGuiApplication>
#include <QScreen>

namespace {

const QString& TitoloDi(GenereLista tipo) {
    static const QString titoli[10] = {
        QString(),
        QStringLiteral("Programma «ZANTO» - Scelta Disegno"),
        QStringLiteral("Programma «ZANTO» - Scelta Cartella Disegni"),
        QStringLiteral("Programma «ZANTO» - Scelta Oggetto"),
        QStringLiteral("Programma «ZANTO» - Scelta Cartella Oggetti"),
        QStringLiteral("Programma «ZANTO» - Scelta Immagine"),
        QStringLiteral("Programma «ZANTO» - Scelta File di Testo (Rtf)"),
        QStringLiteral("Programma «ZANTO» - Scelta Fonts"),
        QStringLiteral("Programma «ZANTO» - Scelta Dimensione Carattere"),
        QStringLiteral("Programma «ZANTO» - Scelta Disegno da Importare"),
    };
    const auto numero = static_cast<int16_t>(tipo);
    return titoli[numero >= 1 && numero <= 9 ? numero : 0];
}

// The face of the lines: fixed pitch, so that the brackets stand in one column.
QFont CarattereRiga(GenereLista tipo, const QString& etichetta) {
    if (tipo == GenereLista::Font) return Carattere(LeggiEtichetta(etichetta).Nome, 11);
    QFont f =
        Carattere(QStringLiteral("Lucida Console"), tipo == GenereLista::Dimensioni ? 15 : 9, true);
    f.setStyleHint(QFont::TypeWriter);
    f.setFixedPitch(true);
    return f;
}

QStringList PrimaDomanda(GenereLista tipo) {
    const QString attenzione = QStringLiteral("ATTENZIONE!");
    switch (tipo) {
    case GenereLista::Disegni:
        return {QStringLiteral("ELIMINARE il Disegno Selezionato?"), attenzione,
                QStringLiteral("Il Disegno verrà definitivamente cancellato!")};
    case GenereLista::Cartelle:
        return {QStringLiteral("ELIMINARE la Cartella Selezionata?"), attenzione,
                QStringLiteral("Tutti i Disegni in essa contenuti verranno"),
                QStringLiteral("definitivamente cancellati!")};
    case GenereLista::Oggetti:
        return {QStringLiteral("ELIMINARE l'Oggetto selezionato?"), attenzione,
                QStringLiteral("L'Oggetto verrà definitivamente cancellato!")};
    case GenereLista::CartelleObj:
        return {QStringLiteral("ELIMINARE la Cartella Selezionata?"), attenzione,
                QStringLiteral("Tutti gli Oggetti in essa contenuti verranno"),
                QStringLiteral("definitivamente cancellati!")};
    case GenereLista::Immagini:
        return {QStringLiteral("ELIMINARE il File Immagine selezionato?"), attenzione,
                QStringLiteral("Il File Immagine verrà definitivamente cancellato!")};
    case GenereLista::Testi:
        return {QStringLiteral("ELIMINARE il File di Testo selezionato?"), attenzione,
                QStringLiteral("Il File di Testo verrà definitivamente cancellato!")};
    case GenereLista::Scambi:
        return {QStringLiteral("ELIMINARE il File di Disegno selezionato?"), attenzione,
                QStringLiteral("Il File di Disegno verrà definitivamente cancellato!")};
    default:
        return {};
    }
}

QStringList SecondaDomanda(GenereLista tipo) {
    QStringList righe = {QStringLiteral("ATTENZIONE!"),
                         QStringLiteral("Conferma definitiva di cancellazione")};
    switch (tipo) {
    case GenereLista::Disegni:
        righe << QStringLiteral("del Disegno selezionato.");
        break;
    case GenereLista::Cartelle:
        righe << QStringLiteral("della Cartella selezionata.")
              << QStringLiteral("TUTTI i Disegni in essa contenuti")
              << QStringLiteral("verranno totalmente eliminati!");
        break;
    case GenereLista::Oggetti:
        righe << QStringLiteral("dell'Oggetto selezionato.");
        break;
    case GenereLista::CartelleObj:
        righe << QStringLiteral("della Cartella selezionata.")
              << QStringLiteral("TUTTI gli Oggetti in essa contenuti")
              << QStringLiteral("verranno totalmente eliminati!");
        break;
    case GenereLista::Immagini:
        righe << QStringLiteral("del File Immagine selezionato.");
        break;
    case GenereLista::Testi:
        righe << QStringLiteral("del File di Testo selezionato.");
        break;
    case GenereLista::Scambi:
        righe << QStringLiteral("del File di Disegno selezionato.");
        break;
    default:
        break;
    }
    righe << QStringLiteral("Premere «OK» per cancellare o")
          << QStringLiteral("«Annulla» per abbandonare!");
    return righe;
}

bool DiCartelle(GenereLista tipo) {
    return tipo == GenereLista::Cartelle || tipo == GenereLista::CartelleObj;
}

} // namespace

QuadroMostraLista::QuadroMostraLista(QWidget* genitore) : FormScansione(100, 125, genitore) {
    setObjectName(QStringLiteral("QuadroMostraLista"));
    setFixedSize(Px(6405), Px(9240));
    InformaAmbiente = true;
    QList<DefinizioneTasto> tabella;
    tabella.append({100, 0, 90, 6405, 315, QString(), QStringLiteral("Riga Precedente")});
    for (int16_t i = 101; i <= 120; ++i)
        tabella.append({i, 0, 405 + 315 * (i - 101), 6405, 315, QString(), QString()});
    tabella.append({121, 0, 6705, 6405, 315, QString(), QStringLiteral("Riga Successiva")});
    tabella.append({122, 0, 7020, 6405, 555, QString(), QStringLiteral("Conferma la Scelta")});
    tabella.append({123, 0, 7575, 6405, 555, QString(), QStringLiteral("Nuova Cartella")});
    tabella.append({124, 0, 8130, 6405, 555, QString(), QStringLiteral("Elimina")});
    tabella.append(
        {125, 0, 8685, 6405, 555, QString(), QStringLiteral("Indietro senza Scegliere")});
    // No rings here: the highlight is the background of the button itself.
    CreaTasti(tabella, 0);
    ImpostaIcona(Tasti.value(100), QStringLiteral(":/icone/lista/su.svg"));
    ImpostaIcona(Tasti.value(121), QStringLiteral(":/icone/lista/giu.svg"));
    ImpostaIcona(Tasti.value(122), QStringLiteral(":/icone/lista/conferma.svg"));
    ImpostaIcona(Tasti.value(123), QStringLiteral(":/icone/lista/nuova-cartella.svg"));
    ImpostaIcona(Tasti.value(124), QStringLiteral(":/icone/lista/elimina.svg"));
    ImpostaIcona(Tasti.value(125), QStringLiteral(":/icone/lista/indietro.svg"));
    for (int16_t i = 100; i <= 125; ++i)
        ColoraTasto(i, ColoreNormale);
}

uint32_t QuadroMostraLista::ColoreTasto(int16_t indice) const {
    return colori_.value(indice, ColoreNormale);
}

void QuadroMostraLista::ColoraTasto(int16_t indice, uint32_t rgb) {
    TastoZanto* tasto = Tasti.value(indice);
    if (tasto == nullptr || colori_.value(indice, 0x1000000) == rgb) return;
    colori_.insert(indice, rgb);
    // A style of its own: the platform's style would paint over the colour.
    // High contrast: the highlighted line black with yellow words.
    const bool contrasto = AltoContrasto == 1 && rgb == ColoreEvidenza;
    tasto->setStyleSheet(QStringLiteral("QPushButton { background-color: %1; color: %2;"
                                        " border: 1px solid #808080; text-align: left;"
                                        " padding: 0px %3px; }"
                                        " QPushButton:disabled { color: #808080; }")
                             .arg(contrasto ? QStringLiteral("#000000") : ColoreRGB(rgb).name(),
                                  contrasto ? QStringLiteral("#ffff00") : QStringLiteral("black"))
                             .arg(Px(60)));
}

void QuadroMostraLista::AttivaQuadroMostraLista() {
    SezioneCorrente = 2200;
    setWindowIcon(IconaSvg(QStringLiteral(":/logo-zanto.svg"), QSize(32, 32)));
    setWindowTitle(TitoloLista);
    for (int16_t i = 100; i <= 125; ++i) {
        Tasti.value(i)->setText(QString());
        Tasti.value(i)->Predefinito = false;
        ColoraTasto(i, ColoreNormale);
    }
    RigaScelta = 0;
    Motore.TastoCorrente = 101;
    AggiornaCorone();
    if (NumeroVoci > 0) PrimaVoceVisibile = 1;
    RiempiRighe();
    Tasti.value(123)->setEnabled(AbilitaTastiLista[1] == 1);
    Tasti.value(124)->setEnabled(AbilitaTastiLista[2] == 1);
    SezioneCorrente = 2290;
}

void QuadroMostraLista::RiempiRighe() {
    for (int16_t i = 1; i <= 20 && i <= NumeroVoci; ++i) {
        const QString& voce = VociLista.at(i - 1 + PrimaVoceVisibile);
        TastoZanto* tasto = Tasti.value(static_cast<int16_t>(100 + i));
        tasto->setFont(CarattereRiga(TipoLista, voce));
        tasto->setText(voce);
        tasto->setAccessibleName(LeggiEtichetta(voce).Nome);
    }
    // An empty list of files to import says why nothing is there; the line is
    // no entry and cannot be picked.
    if (ListaVuotaDetta()) {
        TastoZanto* tasto = Tasti.value(101);
        tasto->setText(TestoListaScambiVuota);
        tasto->setAccessibleName(TestoListaScambiVuota);
    }
}

bool QuadroMostraLista::ListaVuotaDetta() const {
    return TipoLista == GenereLista::Scambi && NumeroVoci == 0;
}

QString QuadroMostraLista::NomeParlato(int16_t indice) const {
    // A line is said by its name, without the padding and the number it shows.
    if (indice >= 101 && indice <= 120) {
        const TastoZanto* tasto = Tasti.value(indice);
        const QString nome = tasto != nullptr && !tasto->text().trimmed().isEmpty()
                                 ? tasto->accessibleName().simplified()
                                 : QString();
        return nome.isEmpty() ? QStringLiteral("riga vuota") : nome;
    }
    return FormScansione::NomeParlato(indice);
}

void QuadroMostraLista::AggiornaCorone() {
    for (int16_t i = 100; i <= 125; ++i) {
        Tasti.value(i)->Predefinito = false;
        ColoraTasto(i, i == RigaScelta ? ColoreScelta : ColoreNormale);
    }
    // The highlight last: a picked line under it shows the highlight.
    const int16_t corrente = Motore.TastoCorrente;
    ColoraTasto(corrente, ColoreEvidenza);
    if (ModalitàFunzionamento == 3 || ModalitàFunzionamento == 4) ImpostaPredefinito(corrente);
    // The drawing screen's title and box name what the highlight stands on: a
    // line by its name, as the voice says it.
    if (AvvisoComandoAmbiente) AvvisoComandoAmbiente(NomeParlato(corrente));
}

void QuadroMostraLista::RoutineTastoGiu(int codice, int modificatori) {
    // A pick reaches its button even when the button is disabled.
    if (codice == CodiciTasto::Invio)
        for (TastoZanto* tasto : std::as_const(Tasti))
            if (tasto->Predefinito) {
                ClickTasto(tasto->Indice());
                return;
            }
    Motore.RoutineTasti(codice, modificatori);
}

void QuadroMostraLista::Riprendi() {
    if (isVisible() && (ModalitàFunzionamento == 1 || ModalitàFunzionamento == 2))
        Motore.AvviaScansione();
}

void QuadroMostraLista::ClickTasto(int16_t indice) {
    if (indice == 100) {
        Su();
    } else if (indice >= 101 && indice <= 120) {
        Riga(indice);
    } else if (indice == 121) {
        Giu();
    } else if (indice == 122) {
        Conferma();
        return;
    } else if (indice == 123) {
        NuovaCartella();
    } else if (indice == 124) {
        Elimina();
    } else if (indice == 125) {
        VoceScelta.clear();
        Motore.FermaScansione();
        done(0);
        return;
    }
    Riprendi();
}

void QuadroMostraLista::Su() {
    if (PrimaVoceVisibile > 1) {
        --PrimaVoceVisibile;
        RiempiRighe();
    } else {
        Bip();
    }
}

void QuadroMostraLista::Giu() {
    if (NumeroVoci < 21 || PrimaVoceVisibile + 20 > NumeroVoci) {
        Bip();
        return;
    }
    ++PrimaVoceVisibile;
    RiempiRighe();
}

void QuadroMostraLista::Riga(int16_t indice) {
    if (Tasti.value(indice)->text().trimmed().isEmpty() || ListaVuotaDetta()) {
        Bip();
        return;
    }
    if (RigaScelta == indice) {
        RigaScelta = 0;
        AggiornaCorone();
        return;
    }
    RigaScelta = indice;
    // With keys that fire and step by hand the next pick is the confirm.
    if (ModalitàFunzionamento == 3 || ModalitàFunzionamento == 4) Motore.TastoCorrente = 122;
    AggiornaCorone();
}

void QuadroMostraLista::Conferma() {
    if (RigaScelta == 0) {
        Bip();
        Riprendi();
        return;
    }
    VoceScelta = Tasti.value(RigaScelta)->text();
    Motore.FermaScansione();
    done(1);
}

void QuadroMostraLista::NuovaCartella() {
    NumeroRigheScritte = 0;
    RigheScritte = QStringList{QString()};
    // The keyboard's title says what it asks for.
    const QString cosa = TipoLista == GenereLista::Cartelle
                             ? QStringLiteral("Nome della Nuova Cartella Disegni")
                         : TipoLista == GenereLista::CartelleObj
                             ? QStringLiteral("Nome della Nuova Cartella Oggetti")
                             : QString();
    int16_t scritte = 0;
    {
        // The keyboard opens lists of its own (its texts, through its fonts):
        // this list must find itself as it left it.
        const ListaTenuta questa;
        scritte = ScriviTesto(LarghezzaNomeEtichetta, cosa);
    }
    if (scritte == 0) {
        DopoCambio();
        return;
    }
    // A line end or a run of blanks has no place in a folder's name.
    const QString nome = PulisciTesto(RigheScritte.at(1));
    if (nome.isEmpty()) {
        DopoCambio();
        return;
    }
    // The whole name, as the user reads it: case and accents do not count.
    bool doppio = false;
    for (int16_t i = 1; i <= NumeroVoci && !doppio; ++i)
        doppio = StessoNome(LeggiEtichetta(VociLista.at(i)).Nome, nome);
    if (doppio) {
        Bip();
        if (DiCartelle(TipoLista))
            Messaggio(Righe({QStringLiteral("ATTENZIONE!"),
                             QStringLiteral("Il nome prescelto per la nuova Cartella è"),
                             QStringLiteral("già esistente."),
                             QStringLiteral("E' necessario scegliere una nome diverso!"),
                             QStringLiteral("Premere «OK» per continuare!")}),
                      1, 1);
        DopoCambio();
        return;
    }
    NomeNuovaCartella = nome;
    if (TipoLista == GenereLista::Cartelle) {
        CreaCartellaDisegni();
        RiempiListaCartelle();
    } else if (TipoLista == GenereLista::CartelleObj) {
        CreaCartellaOggetti();
        RiempiListaCartelleObj();
    }
    DopoCambio();
}

void QuadroMostraLista::DopoCambio() {
    AttivaQuadroMostraLista();
    repaint();
}

void QuadroMostraLista::Elimina() {
    if (RigaScelta == 0) {
        Bip();
        return;
    }
    const EtichettaLetta voce = LeggiEtichetta(Tasti.value(RigaScelta)->text());
    if (DiCartelle(TipoLista) && voce.Valore() == 1) {
        Bip();
        ParcheggiaMouse();
        Messaggio(Righe({QStringLiteral("ATTENZIONE!"),
                         QStringLiteral("E' impossibile eliminare la Cartella di Sistema"),
                         TipoLista == GenereLista::Cartelle
                             ? QStringLiteral("denominata «·Disegni Generale».")
                             : QStringLiteral("denominata «·Oggetti Generale»."),
                         QStringLiteral("Premere «OK» per continuare!")}),
                  1, 1);
        return;
    }
    // A list with nothing to delete asks all the same, with the last text shown.
    const QStringList prima = PrimaDomanda(TipoLista);
    if (!prima.isEmpty()) TestoQuadroMessaggi = Righe(prima);
    TipoQuadroMessaggi = 2;
    TastoPredefinitoQuadroMessaggi = 3;
    ParcheggiaMouse();
    if (MostraQuadroMessaggi() == 3) return;
    ParcheggiaMouse();
    if (Messaggio(Righe(SecondaDomanda(TipoLista)), 2, 3) == 3) return;
    bool eliminato = false;
    EseguiPassi({{2280, [&] { eliminato = EliminaVoceLista(voce); }}});
    // A file gone since the list was read: nothing to delete, say so by a beep.
    if (!eliminato && ((TipoLista >= GenereLista::Disegni && TipoLista <= GenereLista::Testi) ||
                       TipoLista == GenereLista::Scambi))
        Bip();
    switch (TipoLista) {
    case GenereLista::Disegni:
        RiempiListaDisegni();
        break;
    case GenereLista::Cartelle:
        RiempiListaCartelle();
        break;
    case GenereLista::Oggetti:
        RiempiListaOggetti();
        break;
    case GenereLista::CartelleObj:
        RiempiListaCartelleObj();
        break;
    case GenereLista::Immagini:
        RiempiListaImmagini();
        break;
    case GenereLista::Testi:
        RiempiListaTesti();
        break;
    case GenereLista::Scambi:
        RiempiListaScambi();
        break;
    default:
        break;
    }
    DopoCambio();
}

void ScegliDaLista() {
    SvuotaLista();
    AbilitaTastiLista[1] = AbilitaTastiLista[2] = AbilitaTastiLista[3] = 0;
    // A new opening starts at the top with no row picked.
    DatiLista.PrimaVoceVisibile = 1;
    DatiLista.RigaScelta = 0;
    TitoloLista = TitoloDi(TipoLista);
    const bool gestione = ModoCartelle == 2;
    switch (TipoLista) {
    case GenereLista::Disegni:
        AbilitaTastiLista[2] = 1;
        RiempiListaDisegni();
        break;
    case GenereLista::Cartelle:
        AbilitaTastiLista[1] = gestione ? 1 : 0;
        AbilitaTastiLista[2] = 1;
        RiempiListaCartelle();
        break;
    case GenereLista::Oggetti:
        AbilitaTastiLista[2] = 1;
        RiempiListaOggetti();
        break;
    case GenereLista::CartelleObj:
        AbilitaTastiLista[1] = gestione ? 1 : 0;
        AbilitaTastiLista[2] = 1;
        RiempiListaCartelleObj();
        break;
    case GenereLista::Immagini:
        AbilitaTastiLista[2] = 1;
        RiempiListaImmagini();
        break;
    case GenereLista::Testi:
        AbilitaTastiLista[2] = 1;
        RiempiListaTesti();
        break;
    case GenereLista::Font:
        RiempiListaFont();
        break;
    case GenereLista::Dimensioni:
        RiempiListaDimensioni();
        break;
    case GenereLista::Scambi:
        AbilitaTastiLista[2] = 1;
        RiempiListaScambi();
        break;
    default:
        break;
    }
    FormScansione* sotto = FormScansione::InPrimoPiano();
    QuadroMostraLista quadro;
    quadro.AttivaQuadroMostraLista();
    // In the middle of the screen it opens above, or of the display.
    const QRect area = sotto != nullptr ? sotto->frameGeometry()
                                        : QGuiApplication::primaryScreen()->availableGeometry();
    quadro.move(area.center() - quadro.rect().center());
    quadro.exec();
    if (sotto != nullptr && FormScansione::InPrimoPiano() == sotto) sotto->repaint();
}
