#include "app/Avvio.h"
#include "archive/Installatore.h"

#include <QCoreApplication>
#include <QDir>
#include <QTextStream>

int main(int argc, char* argv[]) {
    QCoreApplication app(argc, argv);
    CalcolaRadiceDati();
    const QString esito = InstallaDatiZanto(RadiceDati);
    if (!esito.isEmpty()) {
        QTextStream(stderr) << "zanto-installa: " << esito << '\n';
        return 1;
    }
    QTextStream(stdout) << "zanto-installa: cartella dei dati creata in "
                        << QDir::toNativeSeparators(RadiceDati) << '\n';
    return 0;
}
