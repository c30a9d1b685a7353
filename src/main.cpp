#include "drawing/AmbienteDisegno.h"
#include "input/ConfigurazioniGenerali.h"
#include "start/ApplicazioneZanto.h"
#include "start/Avvio.h"
#include "start/MenuGenerale.h"
#include "start/VisualizzaInformazioni.h"

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
