#include "app/ControlliConfigurazione.h"

#include "base/Misure.h"

#include <QGroupBox>
#include <QRadioButton>
#include <QSpinBox>

QRadioButton* OpzioneModulo(QWidget* genitore, const QString& testo, const QRect& posto) {
    auto* o = new QRadioButton(testo, genitore);
    o->setGeometry(RettangoloTwips(posto.x(), posto.y(), posto.width(), posto.height()));
    o->setFont(Carattere(QStringLiteral("Arial"), 10));
    o->setFocusPolicy(Qt::NoFocus);
    o->setAutoExclusive(false);
    return o;
}

QGroupBox* QuadroModulo(QWidget* genitore, const QString& titolo, const QRect& posto) {
    auto* q = new QGroupBox(titolo, genitore);
    q->setGeometry(RettangoloTwips(posto.x(), posto.y(), posto.width(), posto.height()));
    q->setFont(Carattere(QStringLiteral("Arial"), 10, true));
    return q;
}

QSpinBox* NumeroModulo(QWidget* genitore, const QRect& posto, int minimo, int massimo, int passo,
                       const QString& unita, const QString& zero) {
    auto* n = new QSpinBox(genitore);
    n->setGeometry(RettangoloTwips(posto.x(), posto.y(), posto.width(), posto.height()));
    n->setFont(Carattere(QStringLiteral("Arial"), 10));
    n->setRange(minimo, massimo);
    n->setSingleStep(passo);
    n->setSuffix(unita);
    n->setSpecialValueText(zero);
    n->setAlignment(Qt::AlignRight);
    return n;
}

void ColoraGruppo(QRadioButton* const* opzioni, int quante, int scelta) {
    for (int i = 0; i < quante; ++i) {
        QPalette p = opzioni[i]->palette();
        p.setColor(QPalette::WindowText, i == scelta ? Qt::red : Qt::black);
        opzioni[i]->setPalette(p);
        // Checking a button of a group would otherwise emit a click.
        const bool bloccato = opzioni[i]->blockSignals(true);
        opzioni[i]->setChecked(i == scelta);
        opzioni[i]->blockSignals(bloccato);
    }
}
