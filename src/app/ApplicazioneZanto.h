#pragma once

#include <QApplication>

// The program's application object. It keeps the keys on the front window
// (FuocoFinestre), and it is the last guard: a fault
// that slipped past every form's own guard still ends in the error routine and
// never in Qt's event loop, where it would end the program and the drawing.
// The forms keep their own guards: a fault unwinding through Qt's delivery
// skips Qt's cleanups, so this one is only the net under them.
class ApplicazioneZanto : public QApplication {
public:
    ApplicazioneZanto(int& argc, char** argv);

    bool notify(QObject* destinatario, QEvent* evento) override;
};
