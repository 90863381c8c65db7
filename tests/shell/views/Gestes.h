// What the user does with the mouse and the keyboard in the windows' tests: going into a field
// and leaving it, typing into a box or a field, picking an entry of a list.
#pragma once

#include <QApplication>
#include <QComboBox>
#include <QFocusEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <gtest/gtest.h>
#include <string>

namespace tournesol {

inline void Focus(QWidget* w, QEvent::Type type) {
    QFocusEvent evenement(type, Qt::TabFocusReason);
    QApplication::sendEvent(w, &evenement);
}

// Goes into the field, types, and leaves it.
inline void TaperLigne(QLineEdit* ligne, const QString& texte, bool effacer = false) {
    ASSERT_NE(ligne, nullptr);
    Focus(ligne, QEvent::FocusIn);
    if (effacer) ligne->selectAll();
    QTest::keyClicks(ligne, texte);
    Focus(ligne, QEvent::FocusOut);
}

// The same in the box of that name.
inline void Taper(QWidget* fenetre, const char* nom, const QString& texte) {
    auto* liste = fenetre->findChild<QComboBox*>(nom);
    ASSERT_NE(liste, nullptr) << nom;
    TaperLigne(liste->lineEdit(), texte);
}

// Picks an entry of a box's list, as the user does with the mouse.
inline bool Choisir(QWidget* fenetre, const char* nom, const QString& entree) {
    auto* liste = fenetre->findChild<QComboBox*>(nom);
    if (!liste) return false;
    Focus(liste->lineEdit(), QEvent::FocusIn);
    const int i = liste->findText(entree);
    if (i < 0) return false;
    liste->setCurrentIndex(i);
    emit liste->activated(i);
    Focus(liste->lineEdit(), QEvent::FocusOut);
    return true;
}

// A study named in the opening dialog: typed, or picked from the lists (true when every name was
// in its list).
inline void NommerEtude(QWidget* titre, const QString& poste, const QString& depart,
                        const QString& relais, const QString& numero) {
    Taper(titre, "txtposte", poste);
    Taper(titre, "txtDépart", depart);
    Taper(titre, "txtProtection", relais);
    Taper(titre, "txtnuméro", numero);
}
inline bool ChoisirEtude(QWidget* titre, const QString& poste, const QString& depart,
                         const QString& relais, const QString& numero) {
    return Choisir(titre, "txtposte", poste) && Choisir(titre, "txtDépart", depart) &&
           Choisir(titre, "txtProtection", relais) && Choisir(titre, "txtnuméro", numero);
}

// The opening dialog confirmed with OK, its first box left as the user leaves it.
inline void ConfirmerTitre(QWidget* titre) {
    Focus(titre->findChild<QComboBox*>("txtposte")->lineEdit(), QEvent::FocusIn);
    QTest::mouseClick(titre->findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
}

// The opening dialog left by its Quit button.
inline void QuitterTitre(QWidget* titre) {
    QTest::mouseClick(titre->findChild<QPushButton*>("cmdQuitter"), Qt::LeftButton);
}

// Any other window on the way: a panel with a cancel button (Command2) is left unchanged, a
// question gets its first button, a message is closed with Enter.
inline void RepondreParDefaut(QWidget* w) {
    if (auto* annuler = w->findChild<QPushButton*>("Command2"))
        QTest::mouseClick(annuler, Qt::LeftButton);
    else if (auto* premier = w->findChild<QPushButton*>("cmdBouton(0)"))
        QTest::mouseClick(premier, Qt::LeftButton);
    else
        QTest::keyClick(w, Qt::Key_Return);
}

// The relay chosen in frmChoixProtection by its number.
inline void ChoisirRelais(QWidget* choix, int id) {
    const std::string option = "Option3D1(" + std::to_string(id) + ")";
    choix->findChild<QRadioButton*>(QString::fromStdString(option))->click();
    QTest::mouseClick(choix->findChild<QPushButton*>("Command1"), Qt::LeftButton);
}

} // namespace tournesol
