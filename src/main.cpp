#include "drawing/AmbienteDisegno.h"
#include "start/Avvio.h"
#include "start/MenuGenerale.h"

#include <QApplication>

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    const int fine = AvviaZanto();
    if (fine >= 0) return fine;
    const int esito = QApplication::exec();
    DistruggiAmbienteDisegno();
    DistruggiMenùGenerale();
    return esito;
}
