#include "app/ApplicazioneZanto.h"
#include "app/Avvio.h"
#include "app/ConfigurazioniGenerali.h"
#include "app/MenuGenerale.h"
#include "app/VisualizzaInformazioni.h"
#include "drawing/AmbienteDisegno.h"

int main(int argc, char* argv[]) {
    ApplicazioneZanto app(argc, argv);
    const int fine = AvviaZanto();
    if (fine >= 0) return fine;
    const int esito = QApplication::exec();
    DistruggiAmbienteDisegno();
    DistruggiVisualizzaInformazioni();
    DistruggiConfigurazioniGenerali();
    DistruggiMenùGenerale();
    return esito;
}
