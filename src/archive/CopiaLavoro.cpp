#include "archive/CopiaLavoro.h"

#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "archive/IstruzioniArchivio.h"
#include "base/CartellaAttiva.h"
#include "base/GestioneErrori.h"

#include <algorithm>
#include <limits>

bool RegistraCopiaLavoro() {
    int32_t codice = 0;
    bool scritta = false;
    EseguiPassi({
        {3600,
         [&] {
             // After the highest copy in the archive, should the counter lag
             // behind it: a code already taken would refuse every later copy.
             const int64_t ultima = std::max(CodiceCopiaLavoro, UltimaCopiaLavoro());
             if (ultima >= std::numeric_limits<int32_t>::max())
                 throw ErroreZanto{6, QStringLiteral("Overflow")};
             codice = static_cast<int32_t>(ultima + 1);
         }},
        {3610,
         [&] {
             if (codice == 0) return;
             CodiceDisegnoDaRegistrare = codice;
             CopiaAzioniInDaRegistrare();
             scritta = RegistraTestaEAzioniDisegno(QString::number(codice), CodiceCartellaAttiva);
         }},
    });
    if (scritta) CodiceCopiaLavoro = codice;
    return scritta;
}
