#pragma once

#include "input/FormScansione.h"
#include "panels/Elaborazioni.h"

#include <QString>

#include <cstdint>

// The first line of a list of drawings to import when the files folder holds none.
inline const QString TestoListaScambiVuota =
    QStringLiteral("(nessun File di Disegno da importare)");

// The one chooser of the program: twenty lines of the list at a time, up and
// down by one line, confirm, new folder, delete, back. The highlight is the
// background of the button under it; there are no rings.
class QuadroMostraLista : public FormScansione {
public:
    explicit QuadroMostraLista(QWidget* genitore = nullptr);

    void AttivaQuadroMostraLista();

    void AggiornaCorone() override;
    void ClickTasto(int16_t indice) override;
    void RoutineTastoGiu(int codice, int modificatori) override;
    QString NomeParlato(int16_t indice) const override;

    // The list in front's (DatiLista), kept whole under a list opened inside it.
    int16_t& RigaScelta = DatiLista.RigaScelta;
    int16_t& PrimaVoceVisibile = DatiLista.PrimaVoceVisibile;

    static constexpr uint32_t ColoreNormale = 0xC0C0C0;
    static constexpr uint32_t ColoreScelta = 0xFFFF00;
    static constexpr uint32_t ColoreEvidenza = 0xC0FFFF;
    // The background a button shows now.
    uint32_t ColoreTasto(int16_t indice) const;

private:
    // Is the list one of files to import with none to show? Its first line says so.
    bool ListaVuotaDetta() const;
    void RiempiRighe();
    void ColoraTasto(int16_t indice, uint32_t rgb);
    void Su();
    void Giu();
    void Riga(int16_t indice);
    void Conferma();
    void NuovaCartella();
    void Elimina();
    void DopoCambio();
    void Riprendi();

    QMap<int16_t, uint32_t> colori_;
};

// Fills the list of TipoLista, shows the panel above the screen in front and
// returns when it is gone; VoceScelta holds the chosen label, "" for none.
void ScegliDaLista();
