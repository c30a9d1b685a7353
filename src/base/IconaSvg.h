#pragma once

#include <QIcon>
#include <QSize>
#include <QString>

class QAbstractButton;

// The pictures of the buttons are SVG resources drawn at the size they are
// shown, so that they stay sharp on any scale of the layout.
QIcon IconaSvg(const QString& risorsa, QSize dimensione);

// The dynamic property that holds the resource a button shows.
inline constexpr char ProprietaRisorsaIcona[] = "risorsaIcona";

// Gives a button its picture, fitted inside its face, and notes which one it is.
void ImpostaIcona(QAbstractButton* tasto, const QString& risorsa);

// Makes the program's resources readable; they live in a static library, and
// whoever needs them first calls this. Any number of calls is one.
void RegistraRisorse();
