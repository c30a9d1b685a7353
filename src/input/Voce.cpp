#include "input/Voce.h"

#include "base/Orologio.h"
#include "input/MotoreScansione.h"

#include <QCoreApplication>
#include <QHash>
#include <QLocale>
#include <QPointer>
#include <QTextToSpeech>
#include <QThread>
#include <QVoice>

#include <atomic>

namespace {

QTextToSpeech* NuovoMotoreVocale(QObject* genitore) {
    const QStringList motori = QTextToSpeech::availableEngines();
    if (motori.isEmpty()) return nullptr;
    // speech-dispatcher where there is one: it carries the user's own voices.
    const QString motore =
        motori.contains(QStringLiteral("speechd")) ? QStringLiteral("speechd") : motori.first();
    auto* tts = new QTextToSpeech(motore, genitore);
    if (tts->state() == QTextToSpeech::Error) {
        delete tts;
        return nullptr;
    }
    const QLocale italiano(QLocale::Italian, QLocale::Italy);
    if (tts->availableLocales().contains(italiano)) tts->setLocale(italiano);
    return tts;
}

// Lives in a thread of its own: a speech service that hangs (no sound card, a
// daemon that does not answer) must never stop the ring or the keys.
class LavoratoreVoce : public QObject {
public:
    explicit LavoratoreVoce(VoceDifferita& voce) : voce_(voce) {}

    std::atomic<int> stato{int(Voce::Servizio::InCerca)};

    void Prepara() {
        tts_ = NuovoMotoreVocale(this);
        stato = int(tts_ != nullptr ? Voce::Servizio::Presente : Voce::Servizio::Assente);
        if (tts_ == nullptr) return;
        connect(tts_, &QTextToSpeech::stateChanged, this, [this](QTextToSpeech::State s) {
            if (s == QTextToSpeech::Speaking) {
                visto_ = true;
                return;
            }
            // The end of an utterance cut short may come after the next one has
            // started: only an utterance seen speaking can end.
            if (!visto_) return;
            visto_ = false;
            Concludi(inCorso_);
        });
    }

    void Di(const QString& testo, int numero) {
        if (voce_.Superato(numero)) return; // already overtaken by a newer one
        if (tts_ == nullptr) {
            Concludi(numero);
            return;
        }
        visto_ = false;
        inCorso_ = numero;
        tts_->say(testo);
    }

    void Taci(int finoA) {
        if (tts_ != nullptr) tts_->stop();
        visto_ = false;
        Concludi(finoA);
    }

private:
    void Concludi(int numero) {
        voce_.Concludi(numero);
        QMetaObject::invokeMethod(
            QCoreApplication::instance(), [] { FineVoce(); }, Qt::QueuedConnection);
    }

    VoceDifferita& voce_;
    QTextToSpeech* tts_ = nullptr;
    bool visto_ = false;
    int inCorso_ = 0;
};

class VoceDiSistema final : public VoceDifferita {
public:
    ~VoceDiSistema() override {
        if (filo_ == nullptr) return;
        filo_->quit();
        // A service stuck in a call keeps its thread: it is left to the end
        // of the process rather than hold up the program's exit.
        if (filo_->wait(1000)) {
            delete lavoratore_;
            delete filo_;
        }
    }

    Servizio StatoServizio() override {
        Avvia();
        return Servizio(lavoratore_->stato.load());
    }

private:
    void Parla(const QString& testo, int numero) override {
        Avvia();
        QMetaObject::invokeMethod(
            lavoratore_, [l = lavoratore_, testo, numero] { l->Di(testo, numero); },
            Qt::QueuedConnection);
    }

    void Ferma(int finoA) override {
        if (lavoratore_ == nullptr) return;
        QMetaObject::invokeMethod(
            lavoratore_, [l = lavoratore_, finoA] { l->Taci(finoA); }, Qt::QueuedConnection);
    }

    void Avvia() {
        if (filo_ != nullptr) return;
        filo_ = new QThread;
        filo_->setObjectName(QStringLiteral("voce"));
        lavoratore_ = new LavoratoreVoce(*this);
        lavoratore_->moveToThread(filo_);
        filo_->start(QThread::LowPriority);
        QMetaObject::invokeMethod(
            lavoratore_, [l = lavoratore_] { l->Prepara(); }, Qt::QueuedConnection);
    }

    QThread* filo_ = nullptr;
    LavoratoreVoce* lavoratore_ = nullptr;
};

Voce*& VoceImpostata() {
    static Voce* voce = nullptr;
    ZittisciAlBip = &Zittisci;
    return voce;
}

} // namespace

Voce& VoceCorrente() {
    if (VoceImpostata() != nullptr) return *VoceImpostata();
    static VoceDiSistema sistema;
    return sistema;
}

void ImpostaVoce(Voce* voce) {
    VoceImpostata() = voce;
}

namespace {
int& PronunciaInAttesa() {
    static int sveglia = 0;
    return sveglia;
}
} // namespace

void Zittisci() {
    if (PronunciaInAttesa() != 0) OrologioCorrente().Annulla(PronunciaInAttesa());
    PronunciaInAttesa() = 0;
    VoceCorrente().Taci();
}

void Pronuncia(const QString& testo) {
    Zittisci();
    const int64_t resta = IstanteUltimoBip + PausaDopoBip - OrologioCorrente().Adesso();
    if (resta <= 0) {
        VoceCorrente().Di(testo);
        return;
    }
    PronunciaInAttesa() = OrologioCorrente().Programma(resta, [testo] {
        PronunciaInAttesa() = 0;
        VoceCorrente().Di(testo);
    });
}

void FineVoce() {
    MotoreScansione::VoceFinita();
}

QStringList VociDiSistema() {
    QObject proprietario;
    QTextToSpeech* tts = NuovoMotoreVocale(&proprietario);
    QStringList voci;
    if (tts == nullptr) return voci;
    for (const QVoice& v : tts->availableVoices())
        voci << v.name();
    return voci;
}

QString NomeDelTasto(const QString& didascalia) {
    static const QHash<QString, QString> nomi = {
        {QStringLiteral("__"), QStringLiteral("spazio")},
        {QStringLiteral("Ret"), QStringLiteral("a capo")},
        {QStringLiteral("Del"), QStringLiteral("cancella")},
        {QStringLiteral("BS"), QStringLiteral("cancella indietro")},
        {QStringLiteral("Fn"), QStringLiteral("tasti funzione")},
        {QStringLiteral("@"), QStringLiteral("chiocciola")},
        {QStringLiteral("€"), QStringLiteral("euro")},
        {QStringLiteral("«"), QStringLiteral("apri virgolette")},
        {QStringLiteral("»"), QStringLiteral("chiudi virgolette")},
        {QStringLiteral("!"), QStringLiteral("punto esclamativo")},
        {QStringLiteral("?"), QStringLiteral("punto interrogativo")},
        {QStringLiteral("'"), QStringLiteral("apostrofo")},
        {QStringLiteral("%"), QStringLiteral("per cento")},
        {QStringLiteral("("), QStringLiteral("apri parentesi")},
        {QStringLiteral(")"), QStringLiteral("chiudi parentesi")},
        {QStringLiteral("."), QStringLiteral("punto")},
        {QStringLiteral(","), QStringLiteral("virgola")},
        {QStringLiteral(";"), QStringLiteral("punto e virgola")},
        {QStringLiteral(":"), QStringLiteral("due punti")},
        {QStringLiteral("°"), QStringLiteral("gradi")},
        {QStringLiteral("+"), QStringLiteral("più")},
        {QStringLiteral("-"), QStringLiteral("meno")},
        {QStringLiteral("*"), QStringLiteral("per")},
        {QStringLiteral("/"), QStringLiteral("diviso")},
        {QStringLiteral("="), QStringLiteral("uguale")},
        {QStringLiteral(">"), QStringLiteral("maggiore")},
        {QStringLiteral("<"), QStringLiteral("minore")},
        {QStringLiteral("["), QStringLiteral("apri quadra")},
        {QStringLiteral("]"), QStringLiteral("chiudi quadra")},
    };
    return nomi.value(didascalia, didascalia);
}
