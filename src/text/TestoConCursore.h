#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <cstdint>

// The text of the on-screen keyboard with its cursor: the character "_" stored
// in the text itself, the first one of them. Every edit splits the text there
// into the left part (without the "_") and the right part (from the "_" on)
// and writes the whole text back. No widget: the keyboard shows what this holds.
class TestoConCursore {
public:
    static constexpr QChar Cursore{u'_'};
    static constexpr QChar Cr{u'\r'};
    static constexpr QChar Lf{u'\n'};

    // A text without any "_" gets the cursor at its end.
    void Imposta(const QString& testo);
    const QString& Testo() const { return testo_; }

    QString Sinistra() const;
    QString Destra() const;
    // The text as it would be without the cursor.
    QString SenzaCursore() const;
    // Length of the whole text, the "_" included: what the limit is measured on.
    qsizetype Lunghezza() const { return testo_.size(); }

    // Each edit returns false when it cannot act; the text is then as it was.
    void Inserisci(const QString& caratteri);
    bool CancellaDopo();  // the character after the cursor
    bool CancellaPrima(); // the character before the cursor
    bool Indietro();      // the cursor one character left
    bool Avanti();        // the cursor one character right
    void Inizio();
    void Fine();

    // The measure taken before every function key: the lines of the text
    // without the cursor and the line the cursor stands on, in 32 bits: a text
    // read from a file may have more lines than 16 bits count.
    void Misura();
    int32_t NumeroRighe = 1;
    // 1-based: element 0 exists and stays 0.
    QList<int32_t> InizioRighe{0, 1};
    int32_t RigaCursore = 1;

    enum class EsitoRiga { SolaRiga, Bordo, Spostato };
    // The cursor to the start of the line above or below, whatever its column.
    EsitoRiga Su();
    EsitoRiga Giu();

    // The lines of a confirmed text: blanks trimmed at both ends, every line
    // but the last keeps its CR, a line that begins with a line feed loses it.
    // 1-based, element 0 unused; no lines for an empty text.
    static QStringList Righe(const QString& senzaCursore);
    // The lines of a text that comes back for editing, joined as they stand.
    static QString Unisci(const QStringList& righe, int16_t numero);

private:
    void Componi(const QString& sinistra, const QString& destra);
    void Sposta(int32_t posizione); // 1-based, in the text without cursor

    QString testo_{Cursore};
};
