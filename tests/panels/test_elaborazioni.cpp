// The fill routines of the list panel: each list from a real archive or
// folder, label by label, in its order.
#include "app/Avvio.h"
#include "app/MenuGenerale.h"
#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "base/Bip.h"
#include "base/Utilita.h"
#include "panels/Elaborazioni.h"
#include "panels/EtichettaLista.h"
#include "panels/VideaAvanzamento.h"
#include "support/AmbienteProva.h"

#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QSqlQuery>
#include <QtTest>

#include <memory>

namespace {

void Sql(const QString& archivio, const QString& testo) {
    QSqlQuery q(Archivio(archivio));
    QVERIFY2(q.exec(testo), qPrintable(testo));
}

void ScriviFile(const QString& nome) {
    QFile f(RadiceDati + QDir::separator() + NomiArchivi::SottocartellaFile + QDir::separator() +
            nome);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write("x");
}

QStringList Voci() {
    return VociLista.mid(1);
}

} // namespace

class ProvaElaborazioni : public QObject {
    Q_OBJECT

    std::unique_ptr<AmbienteProva> amb;

private slots:
    void init() {
        amb = std::make_unique<AmbienteProva>();
        amb->ApriArchivi();
        ContatoreBip = 0;
    }
    void cleanup() { amb.reset(); }

    void disegni_della_cartella_attiva_per_nome_senza_copie_di_lavoro() {
        Sql(ArchivioDisegni, QStringLiteral("INSERT INTO TabCartelle VALUES (2, 'Scuola')"));
        Sql(ArchivioDisegni, QStringLiteral("INSERT INTO TabDisegni VALUES (12, 'zebra', 2),"
                                            " (3, 'Albero', 2), (12345, 'casa', 2),"
                                            " (7, 'altrove', 1), (1000001, 'copia', 2)"));
        CodiceCartellaAttiva = 2;
        RiempiListaDisegni();
        QCOMPARE(NumeroVoci, int16_t(3));
        QCOMPARE(Voci(), (QStringList{ComponiEtichetta("Albero", 3, FormatoEtichetta::Elemento),
                                      ComponiEtichetta("casa", 12345, FormatoEtichetta::Elemento),
                                      ComponiEtichetta("zebra", 12, FormatoEtichetta::Elemento)}));
        QCOMPARE(VociLista.at(1),
                 QStringLiteral("Albero") + QString(34, ' ') + QStringLiteral(" [ 0003 ]"));
        QCOMPARE(ContatoreBip, 0);
    }

    void una_cartella_vuota_suona_e_lascia_la_lista_vuota() {
        VociLista = QStringList{QString(), QStringLiteral("vecchia")};
        NumeroVoci = 1;
        CodiceCartellaAttiva = 1;
        RiempiListaDisegni();
        QCOMPARE(NumeroVoci, int16_t(0));
        QCOMPARE(VociLista, QStringList{QString()});
        QCOMPARE(ContatoreBip, 1);
        CodiceCartellaObjAttiva = 1;
        RiempiListaOggetti();
        QCOMPARE(ContatoreBip, 2);
    }

    void oggetti_e_cartelle_con_i_loro_formati() {
        Sql(ArchivioOggetti, QStringLiteral("INSERT INTO TabCartelleObj VALUES (4, 'Animali')"));
        Sql(ArchivioOggetti, QStringLiteral("INSERT INTO TabOggetti VALUES (9, 'Gatto', 4)"));
        CodiceCartellaObjAttiva = 4;
        RiempiListaOggetti();
        QCOMPARE(Voci(), QStringList{ComponiEtichetta("Gatto", 9, FormatoEtichetta::Elemento)});
        RiempiListaCartelleObj();
        // By name: the system folder's leading dot sorts after the letters.
        QCOMPARE(Voci(), (QStringList{ComponiEtichetta("Animali", 4, FormatoEtichetta::Cartella),
                                      ComponiEtichetta(NomiArchivi::CartellaSistemaOggetti, 1,
                                                       FormatoEtichetta::Cartella)}));
        Sql(ArchivioDisegni, QStringLiteral("INSERT INTO TabCartelle VALUES (5, 'Casa')"));
        RiempiListaCartelle();
        QCOMPARE(NumeroVoci, int16_t(2));
        QVERIFY(Voci().contains(ComponiEtichetta("Casa", 5, FormatoEtichetta::Cartella)));
        QVERIFY(Voci().contains(
            ComponiEtichetta(NomiArchivi::CartellaSistemaDisegni, 1, FormatoEtichetta::Cartella)));
    }

    void immagini_e_testi_per_posto_nell_elenco_dei_file() {
        ScriviFile(QStringLiteral("mare.jpg"));
        ScriviFile(QStringLiteral("sole.BMP"));
        ScriviFile(QStringLiteral("lettera.rtf"));
        ScriviFile(QStringLiteral("note.txt"));
        RiempiListaImmagini();
        QCOMPARE(NumeroVoci, int16_t(2));
        for (int16_t i = 1; i <= NumeroVoci; ++i) {
            const EtichettaLetta l = LeggiEtichetta(VociLista.at(i));
            QCOMPARE(l.Valore(), int64_t(i));
            QCOMPARE(QFileInfo(ElencoFile.at(i)).fileName(), l.Nome);
        }
        QVERIFY(VideaAvanzamentoAperta() == nullptr);
        // Today's cameras and phones give these.
        ScriviFile(QStringLiteral("telefono.png"));
        ScriviFile(QStringLiteral("foto.JPEG"));
        RiempiListaImmagini();
        QStringList nomi;
        for (int16_t i = 1; i <= NumeroVoci; ++i)
            nomi << LeggiEtichetta(VociLista.at(i)).Nome;
        nomi.sort();
        QCOMPARE(nomi, (QStringList{"foto.JPEG", "mare.jpg", "sole.BMP", "telefono.png"}));
        RiempiListaTesti();
        QCOMPARE(Voci(),
                 QStringList{ComponiEtichetta("lettera.rtf", 1, FormatoEtichetta::Cartella)});
    }

    void font_da_A_a_Z_in_ordine() {
        RiempiListaFont();
        // The faces the program's packages install are there, under their names.
        QStringList nomi;
        for (int16_t i = 1; i <= NumeroVoci; ++i) {
            const EtichettaLetta voce = LeggiEtichetta(VociLista.at(i));
            QCOMPARE(voce.Valore(), int64_t(i));
            QCOMPARE(VociLista.at(i),
                     voce.Nome + QStringLiteral(" [ %1 ]").arg(i, 4, 10, QChar('0')));
            nomi << voce.Nome;
        }
        QVERIFY(nomi.contains(QStringLiteral("DejaVu Sans")));
        QVERIFY(nomi.contains(QStringLiteral("Liberation Serif")));
        QVERIFY(nomi.contains(QStringLiteral("Liberation Sans")));
        // Each once, from A to Z only, in order.
        for (int i = 0; i < nomi.size(); ++i) {
            QVERIFY2(nomi.at(i).at(0) >= u'A' && nomi.at(i).at(0) <= u'Z', qPrintable(nomi.at(i)));
            if (i > 0) QVERIFY2(nomi.at(i - 1) < nomi.at(i), qPrintable(nomi.at(i)));
        }
    }

    void venti_dimensioni_da_8_a_46() {
        RiempiListaDimensioni();
        QCOMPARE(NumeroVoci, int16_t(20));
        QCOMPARE(VociLista.at(1), QStringLiteral("8"));
        QCOMPARE(VociLista.at(2), QStringLiteral("10"));
        QCOMPARE(VociLista.at(20), QStringLiteral("46"));
    }
};

QTEST_MAIN(ProvaElaborazioni)
#include "test_elaborazioni.moc"
