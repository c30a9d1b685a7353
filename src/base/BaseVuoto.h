#pragma once

#include <QWidget>

class QLabel;

// The cover that stands on the screen while the program starts.
class BaseVuoto : public QWidget {
public:
    explicit BaseVuoto(QWidget* genitore = nullptr);

    QLabel* ImmagineScrittaZANTO = nullptr;
    QLabel* AttendereStrBV = nullptr;
    QLabel* AttendereImgBV = nullptr;
};
