// The working window while the diagram is being built: the study's names and every value of
// its state, read from the engine's study file.
#pragma once

#include <QMainWindow>

namespace tournesol {
struct Etude;

class VueEtude : public QMainWindow {
    Q_OBJECT
public:
    explicit VueEtude(const Etude& e, QWidget* parent = nullptr);
};

} // namespace tournesol
