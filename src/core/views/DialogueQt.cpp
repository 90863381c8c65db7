#include "core/views/DialogueQt.h"

#include "core/Panneau.h"
#include "core/views/FenetrePanneau.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace tournesol {

namespace {
QString Q(const std::string& s) {
    return QString::fromStdString(s);
}

// The texts of the system carry CR LF; the window shows plain line breaks.
QString Lignes(const std::string& s) {
    return Q(s).replace("\r\n", "\n");
}
} // namespace

FenetreMessage::FenetreMessage(const QString& titre, const QString& texte, int icone,
                               const QStringList& boutons, QWidget* parent)
    : QDialog(parent), question_(!boutons.isEmpty()) {
    setObjectName(question_ ? "frmQuery" : "frmMessage");
    setWindowTitle(titre);
    setModal(true);
    auto* pile = new QVBoxLayout(this);
    auto* ligne = new QHBoxLayout;
    auto* image = new QLabel(this);
    image->setObjectName("imgIcon");
    const QStyle::StandardPixmap icones[] = {QStyle::SP_CustomBase, QStyle::SP_MessageBoxCritical,
                                             QStyle::SP_DriveHDIcon, QStyle::SP_MessageBoxWarning};
    if (icone >= 1 && icone <= 3)
        image->setPixmap(style()->standardIcon(icones[icone]).pixmap(32, 32));
    image->setVisible(icone >= 1 && icone <= 3);
    ligne->addWidget(image, 0, Qt::AlignTop);
    auto* message = new QLabel(texte, this);
    message->setObjectName("lblMessage");
    message->setWordWrap(true);
    message->setMinimumWidth(280);
    message->installEventFilter(this);
    ligne->addWidget(message, 1);
    pile->addLayout(ligne);
    auto* rangee = new QHBoxLayout;
    rangee->addStretch();
    if (!question_) {
        // A message closes with the mouse alone too.
        auto* ok = new QPushButton("OK", this);
        ok->setObjectName("cmdOK");
        ok->setAutoDefault(true);
        connect(ok, &QPushButton::clicked, this, [this] { QDialog::accept(); });
        rangee->addWidget(ok);
    }
    for (int i = 0; i < boutons.size(); ++i) {
        if (boutons[i].isEmpty()) continue;
        auto* bouton = new QPushButton(boutons[i], this);
        bouton->setObjectName(QString("cmdBouton(%1)").arg(i));
        bouton->setAutoDefault(i == 0);
        connect(bouton, &QPushButton::clicked, this, [this, i] {
            reponse_ = i;
            QDialog::accept();
        });
        rangee->addWidget(bouton);
    }
    pile->addLayout(rangee);
}

void FenetreMessage::showEvent(QShowEvent* evenement) {
    if (question_) QApplication::beep();
    QDialog::showEvent(evenement);
}

bool FenetreMessage::eventFilter(QObject* objet, QEvent* evenement) {
    if (!question_ && evenement->type() == QEvent::MouseButtonRelease &&
        objet->objectName() == "lblMessage") {
        QDialog::accept();
        return true;
    }
    return QDialog::eventFilter(objet, evenement);
}

void FenetreMessage::keyPressEvent(QKeyEvent* evenement) {
    const bool entree = evenement->key() == Qt::Key_Return || evenement->key() == Qt::Key_Enter;
    if (!question_ && entree)
        QDialog::accept();
    else if (question_ && entree)
        QDialog::keyPressEvent(evenement); // the focused button
    // Every other key is swallowed.
}

void FenetreMessage::reject() {}

void FenetreMessage::closeEvent(QCloseEvent* evenement) {
    if (question_) {
        evenement->ignore(); // a question is answered by its buttons only
    } else {
        evenement->accept();
        QDialog::accept(); // the close box closes a message
    }
}

DialogueQt::DialogueQt() = default;

void DialogueQt::Inscrire(const std::string& panneau, FabriqueVue fabrique) {
    fabriques_[panneau] = std::move(fabrique);
}

void DialogueQt::InscrireGenre(FabriqueVue fabrique) {
    genres_.push_back(std::move(fabrique));
}

void DialogueQt::Message(const std::string& titre, const std::string& texte, int icone) {
    FenetreMessage fenetre(Q(titre), Lignes(texte), icone, {}, QApplication::activeWindow());
    fenetre.exec();
}

int DialogueQt::Question(const std::string& titre, const std::string& texte, int icone,
                         const Boutons& boutons) {
    QStringList textes;
    for (const std::string& b : boutons)
        textes << Q(b);
    if (textes.first().isEmpty()) textes.first() = "OK";
    FenetreMessage fenetre(Q(titre), Lignes(texte), icone, textes, QApplication::activeWindow());
    fenetre.exec();
    return fenetre.Reponse();
}

void DialogueQt::MontrerPanneau(Panneau& panneau) {
    const bool sablier = Sablier(false);
    std::unique_ptr<FenetrePanneau> fenetre;
    if (const auto it = fabriques_.find(panneau.Nom()); it != fabriques_.end())
        fenetre = it->second(panneau, *this);
    for (auto genre = genres_.begin(); !fenetre && genre != genres_.end(); ++genre)
        fenetre = (*genre)(panneau, *this);
    if (!fenetre) {
        fenetre = std::make_unique<FenetrePanneau>(panneau, QApplication::activeWindow());
        fenetre->ConstruireGenerique();
    }
    fenetre->exec();
    Sablier(sablier);
}

bool DialogueQt::Sablier(bool actif) {
    const bool avant = sablier_;
    if (actif && !sablier_)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else if (!actif && sablier_)
        QApplication::restoreOverrideCursor();
    sablier_ = actif;
    return avant;
}

void DialogueQt::LaisserPasserEvenements() {
    QCoreApplication::processEvents();
}

void DialogueQt::Bip() {
    QApplication::beep();
}

} // namespace tournesol
