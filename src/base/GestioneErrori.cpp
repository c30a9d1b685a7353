#include "base/GestioneErrori.h"

#include "base/Bip.h"
#include "base/Sessione.h"

#include <QMessageBox>

#include <algorithm>
#include <array>
#include <exception>
#include <new>

namespace {

QString TestoStampa(int n, int s) {
    const QStringList righe = {
        QStringLiteral("ERRORE! La STAMPA è impossibile per uno dei seguenti problemi:"),
        QStringLiteral("1) Si è cercato di stampare su una stampante che accetta solo testo."),
        QStringLiteral("2) Nessuna stampante è installata nel Pannello di controllo di Windows."),
        QStringLiteral("3) La stampante non è in linea."),
        QStringLiteral("4) La stampante non riesce a comunicare con il Computer."),
        QStringLiteral("5) La stampante è inceppata oppure la carta è esaurita."),
        QStringLiteral("6) Il Driver della stampante è inadatto o incompatibile."),
        QStringLiteral("(Errore: %1/%2)").arg(n).arg(s),
    };
    return righe.join(QChar('\r'));
}

bool Tra(int n, std::initializer_list<int> valori) {
    return std::find(valori.begin(), valori.end(), n) != valori.end();
}

} // namespace

void ScatolaDiSistema(IconaScatola icona, const QString& titolo, const QString& testo) {
    QMessageBox box(icona == IconaScatola::Critica ? QMessageBox::Critical : QMessageBox::Warning,
                    titolo, QString(testo).replace(QChar('\r'), QChar('\n')), QMessageBox::Ok);
    box.exec();
}

QString TestoErrore(int n, int s, const QString& d) {
    const QString numeri = QStringLiteral("(%1/%2)").arg(n).arg(s);
    switch (n) {
    case 53:
        return QStringLiteral("ERRORE: Assenza di un FILE necessario sul DISCO  in USO! ") + numeri;
    case 57:
    case 68:
        return QStringLiteral("ERRORE: Dispositivo NON ACCESSIBILE o DISPONIBILE! ") + numeri;
    case 61:
    case 67:
        return QStringLiteral("ERRORE:  Il Dischetto in uso e` TROPPO PIENO: SOSTITUIRLO! ") +
               numeri;
    case 70:
        return QStringLiteral("ERRORE: Il Disco in uso e` PROTETTO da SCRITTURA! ") + numeri;
    case 71:
        return QStringLiteral("ERRORE: Il Drive da usare e` APERTO o VUOTO! ") + numeri;
    case 76:
        return QStringLiteral("ERRORE: Assenza di una Directory necessaria sul DISCO in USO! ") +
               numeri;
    default:
        break;
    }
    if (n >= 482 && n <= 486) return TestoStampa(n, s);
    const QString cr(QChar('\r'));
    QString testo = QStringLiteral("ERRORE %1/%2: ").arg(n).arg(s) + cr + d + cr + cr;
    testo += FaseAvvio != 0 ? QStringLiteral("Registrare la situazione e CHIAMARE L'ASSISTENZA!")
                            : QStringLiteral("Premere il Tasto «OK» per CONTINUARE! ");
    return testo;
}

void GestioneErrori(const ErroreZanto& errore) {
    const int n = errore.Numero;
    const int s = SezioneCorrente;
    // Files are opened and closed inside one step, so none is left open here.

    if ((n == 6 && s == 2290) || (n == 53 && s == 2010)) {
        EsitoErrore = 2;
        return;
    }
    if (n == 3021 && Tra(s, {1030, 1272, 1354, 2000, 2300, 2400, 2800, 2900})) {
        RecordAssente = 1;
        EsitoErrore = 2;
        return;
    }
    if (s == 105) {
        ScritturaFallita = 1;
        EsitoErrore = 2;
        return;
    }

    Bip();
    const QString testo = TestoErrore(n, s, errore.Descrizione);
    PuntatorePredefinito();
    MostraScatolaPiattaforma(IconaScatola::Critica, QStringLiteral("ZANTO"), testo);
    EsitoErrore = 3;
}

bool EseguiPassi(std::initializer_list<Passo> passi) {
    for (const Passo& passo : passi) {
        for (;;) {
            SezioneCorrente = passo.Sezione;
            try {
                passo.Corpo();
                break;
            } catch (const ErroreZanto& e) {
                GestioneErrori(e);
                if (EsitoErrore == 1) continue;
                if (EsitoErrore == 2) break;
                if (FaseAvvio == 1) throw FineProgramma{1};
                return false;
            }
        }
    }
    return true;
}

bool EseguiProtetto(const std::function<void()>& corpo) {
    try {
        corpo();
        return true;
    } catch (const FineProgramma&) {
        throw;
    } catch (const ErroreZanto& e) {
        GestioneErrori(e);
    } catch (const std::bad_alloc&) {
        GestioneErrori({7, QStringLiteral("Memoria esaurita")});
    } catch (const std::exception& e) {
        GestioneErrori({51, QStringLiteral("Errore interno: ") + QString::fromLocal8Bit(e.what())});
    } catch (...) {
        GestioneErrori({51, QStringLiteral("Errore interno")});
    }
    return false;
}
