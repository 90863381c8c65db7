// Drives modal windows in tests: each window that comes up is handed once to what the user
// does, after the current event, and never once it is gone.
#pragma once

#include <QApplication>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <functional>

namespace tournesol {

class Pilote {
public:
    explicit Pilote(std::function<void(QWidget*)> agir) : agir_(std::move(agir)) {
        minuterie_.setInterval(10);
        QObject::connect(&minuterie_, &QTimer::timeout, [this] { Regarder(); });
        minuterie_.start();
    }
    ~Pilote() { minuterie_.stop(); }

private:
    void Regarder() {
        QWidget* w = QApplication::activeModalWidget();
        if (!w) return;
        // A window seen already may come back on top when another it opened closes.
        for (const QPointer<QWidget>& vue : vues_)
            if (vue == w) return;
        vues_.append(QPointer<QWidget>(w));
        QPointer<QWidget> garde(w);
        // The user acts once this turn is over: a window may open another modally.
        QTimer::singleShot(0, [this, garde] {
            if (garde) agir_(garde);
        });
    }

    std::function<void(QWidget*)> agir_;
    QTimer minuterie_;
    QList<QPointer<QWidget>> vues_;
};

} // namespace tournesol
