#include "relays/views/FenetreRelais.h"

#include "core/views/DialogueQt.h"
#include "core/views/Lieur.h"
#include "relays/PanneauProtection.h"

#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <map>
#include <set>

namespace tournesol {

namespace {

QString Q(const std::string& s) {
    return QString::fromStdString(s);
}

// The columns of a frame's grid.
constexpr int COL_LEGENDE = 0;
constexpr int COL_SECONDAIRE = 1; // and its unit in the next column
constexpr int COL_PRIMAIRE = 3;
constexpr int COLONNES = 5; // the first column past the fields: the room left over

// A row of a frame: the fields on the left (secondary, or without a column) and on the right
// (primary), or a field across the frame.
struct Rangee {
    const Champ* gauche = nullptr;
    const Champ* droite = nullptr;
    const Champ* travers = nullptr;
};

struct Cadre {
    std::string groupe;
    QString titre;
    int onglet = -1; // -1: under the sheets
    std::vector<Rangee> rangees;
    bool secondaire = false;
    bool primaire = false;
};

// How the fields of a relay panel stand: frames in the order of their first field, a field and
// its twin on one row.
class Disposition {
public:
    explicit Disposition(PanneauTable& p) : p_(p) {
        for (const Champ& c : p_.Champs())
            if (const DescriptionChamp* d = p_.Description(c.Nom); d && !d->Jumeau.empty()) {
                if (!p_.Trouver(d->Jumeau)) continue;
                jumeaux_.emplace(d->Nom, d->Jumeau);
                jumeaux_.emplace(d->Jumeau, d->Nom);
            }
        for (const Champ& c : p_.Champs())
            Placer(c);
    }

    std::vector<Cadre> cadres;
    std::vector<const Champ*> boutons;  // the commands under the sheets (OK)
    std::set<std::string> titresCadres; // frames whose title is a field

    // The column of ohms a field stands in: its own, else the other one than its twin's.
    ColonneOhms Colonne(const Champ& c) const {
        if (const DescriptionChamp* d = p_.Description(c.Nom);
            d && d->Colonne != ColonneOhms::Aucune)
            return d->Colonne;
        const auto j = jumeaux_.find(c.Nom);
        if (j == jumeaux_.end()) return ColonneOhms::Aucune;
        const DescriptionChamp* dj = p_.Description(j->second);
        if (!dj || dj->Colonne == ColonneOhms::Aucune) return ColonneOhms::Aucune;
        return dj->Colonne == ColonneOhms::Secondaire ? ColonneOhms::Primaire
                                                      : ColonneOhms::Secondaire;
    }

private:
    void Placer(const Champ& c) {
        if (places_.count(c.Nom)) return;
        places_.insert(c.Nom);
        if (c.Genre == GenreChamp::Bouton && c.Groupe.empty()) {
            boutons.push_back(&c);
            return;
        }
        const Champ* jumeau = nullptr;
        if (const auto j = jumeaux_.find(c.Nom); j != jumeaux_.end() && !places_.count(j->second)) {
            jumeau = p_.Trouver(j->second);
            places_.insert(j->second);
        }
        const std::string groupe = (c.Groupe.empty() && jumeau ? jumeau->Groupe : c.Groupe).Texte();
        if (c.Genre == GenreChamp::Etiquette && c.Nom == groupe) {
            titresCadres.insert(groupe);
            return;
        }
        Cadre& cadre = CadreDe(groupe);
        Rangee r;
        if (c.Genre != GenreChamp::Texte && c.Genre != GenreChamp::Liste) {
            r.travers = &c;
        } else {
            const ColonneOhms colonne = Colonne(c);
            const bool aDroite =
                colonne == ColonneOhms::Primaire || (jumeau && colonne == ColonneOhms::Aucune &&
                                                     Colonne(*jumeau) == ColonneOhms::Secondaire);
            r.gauche = aDroite ? jumeau : &c;
            r.droite = aDroite ? &c : jumeau;
            for (const Champ* x : {r.gauche, r.droite}) {
                if (!x) continue;
                cadre.secondaire |= Colonne(*x) == ColonneOhms::Secondaire;
                cadre.primaire |= Colonne(*x) == ColonneOhms::Primaire;
            }
        }
        cadre.rangees.push_back(r);
    }

    Cadre& CadreDe(const std::string& groupe) {
        for (Cadre& c : cadres)
            if (c.groupe == groupe) return c;
        Cadre cadre;
        cadre.groupe = groupe;
        const std::size_t barre = groupe.find('/');
        const std::string feuille = groupe.substr(0, barre);
        const auto& onglets = p_.Onglets();
        const auto it = std::find(onglets.begin(), onglets.end(), feuille);
        if (it != onglets.end()) {
            cadre.onglet = static_cast<int>(it - onglets.begin());
            cadre.titre = barre == std::string::npos ? QString() : Q(groupe.substr(barre + 1));
        } else {
            cadre.titre = Q(groupe); // a group of no sheet stands under the sheets
        }
        cadres.push_back(std::move(cadre));
        return cadres.back();
    }

    PanneauTable& p_;
    std::map<std::string, std::string> jumeaux_;
    std::set<std::string> places_;
};

} // namespace

FenetreRelais::FenetreRelais(PanneauTable& modele, QWidget* parent)
    : FenetrePanneau(modele, parent), relais_(modele) {
    const Disposition disposition(modele);
    auto* pile = new QVBoxLayout(this);
    onglets_ = new QTabWidget(this);
    onglets_->setObjectName("Onglets");
    onglets_->setUsesScrollButtons(false); // every sheet's title in full
    std::vector<QVBoxLayout*> feuilles;
    for (int i = 0; i < modele.NombreOnglets(); ++i) {
        auto* feuille = new QWidget(onglets_);
        feuille->setObjectName(QString("Onglet(%1)").arg(i));
        feuilles.push_back(new QVBoxLayout(feuille));
        onglets_->addTab(feuille, Q(modele.Onglets()[static_cast<std::size_t>(i)]));
    }
    pile->addWidget(Defilante(onglets_, this), 1); // the sheets scroll on a small screen

    // The captions of one sheet share one width, so that its frames' columns stand in line.
    std::map<int, std::vector<QGridLayout*>> grilles;
    std::map<int, int> largeurLegendes;
    for (const Cadre& cadre : disposition.cadres) {
        QWidget* parent = cadre.onglet >= 0 ? onglets_->widget(cadre.onglet) : this;
        QWidget* boite =
            cadre.titre.isEmpty() ? new QWidget(parent) : new QGroupBox(cadre.titre, parent);
        if (disposition.titresCadres.count(cadre.groupe)) boite->setObjectName(Q(cadre.groupe));
        auto* grille = new QGridLayout(boite);
        grille->setColumnStretch(COLONNES, 1);
        int ligne = 0;
        if (cadre.secondaire && cadre.primaire) {
            grille->addWidget(new QLabel("secondary", boite), ligne, COL_SECONDAIRE,
                              Qt::AlignHCenter);
            grille->addWidget(new QLabel("primary", boite), ligne, COL_PRIMAIRE, Qt::AlignHCenter);
            ++ligne;
        }
        for (const Rangee& r : cadre.rangees) {
            if (r.travers) {
                QWidget* w = CreerWidget(modele, *r.travers, boite);
                if (auto* texte = qobject_cast<QLabel*>(w); texte && texte->wordWrap()) {
                    texte->installEventFilter(this);
                    textes_.push_back(texte);
                }
                grille->addWidget(w, ligne++, 0, 1, -1);
                continue;
            }
            LigneCadre l;
            std::string legende;
            for (const Champ* c : {r.gauche, r.droite}) {
                if (!c) continue;
                const DescriptionChamp* d = relais_.Description(c->Nom);
                if (legende.empty()) legende = d ? d->Legende : c->Legende.Texte();
                DescriptionChamp colonne = d ? *d : DescriptionChamp{};
                colonne.Colonne = disposition.Colonne(*c);
                QWidget* w = CreerWidget(modele, *c, boite);
                if (auto* saisie = qobject_cast<QLineEdit*>(w)) {
                    saisie->setAlignment(Qt::AlignRight);
                    saisie->setFixedWidth(saisie->fontMetrics().horizontalAdvance("0000000.000"));
                    // A set value is read off the window onto the relay: shown only, but legible.
                    QPalette palette = saisie->palette();
                    palette.setColor(QPalette::Disabled, QPalette::Text,
                                     palette.color(QPalette::Active, QPalette::Text));
                    saisie->setPalette(palette);
                }
                auto* unite = new QLabel(Q(UniteDuChamp(colonne)), boite);
                const int col = c == r.droite ? COL_PRIMAIRE : COL_SECONDAIRE;
                grille->addWidget(w, ligne, col);
                grille->addWidget(unite, ligne, col + 1);
                l.champs.emplace_back(w, unite);
            }
            l.legende = new QLabel(Q(legende), boite);
            l.legende->setBuddy(l.champs.front().first);
            grille->addWidget(l.legende, ligne++, COL_LEGENDE);
            largeurLegendes[cadre.onglet] =
                std::max(largeurLegendes[cadre.onglet], l.legende->sizeHint().width());
            lignes_.push_back(l);
        }
        grilles[cadre.onglet].push_back(grille);
        if (cadre.onglet >= 0)
            feuilles[static_cast<std::size_t>(cadre.onglet)]->addWidget(boite);
        else
            pile->addWidget(boite);
    }
    for (auto& [onglet, liste] : grilles)
        for (QGridLayout* grille : liste)
            grille->setColumnMinimumWidth(COL_LEGENDE, largeurLegendes[onglet]);
    for (QVBoxLayout* feuille : feuilles)
        feuille->addStretch();

    auto* commandes = new QHBoxLayout;
    commandes->addStretch();
    for (const Champ* c : disposition.boutons)
        commandes->addWidget(CreerWidget(modele, *c, this));
    pile->addLayout(commandes);

    // Alt and a letter in a field is a shortcut of the panel, not a letter of the field.
    for (QWidget* w : findChildren<QWidget*>())
        if (qobject_cast<QLineEdit*>(w) || qobject_cast<QComboBox*>(w)) w->installEventFilter(this);
    connect(onglets_, &QTabWidget::currentChanged, this, &FenetreRelais::ChangerOnglet);
    Lier();
}

void FenetreRelais::ChangerOnglet(int i) {
    if (synchro_ || i < 0) return;
    synchro_ = true;
    // The sheet left stays in front until the model has changed it (after a question, say).
    onglets_->setCurrentIndex(relais_.OngletCourant());
    relais_.Cliquer("TitreOnglet(" + std::to_string(i) + ")");
    synchro_ = false;
    lieur_->Rafraichir();
    Apres(); // the tab shown is the model's, which may have refused
}

void FenetreRelais::Raccourci(int touche, bool alt) {
    // A dialog of sheets has no shortcuts of its own.
    if (auto* relais = dynamic_cast<PanneauProtection*>(&relais_))
        relais->Raccourci(static_cast<char>('A' + (touche - Qt::Key_A)), alt);
    lieur_->Rafraichir();
    Apres();
}

void FenetreRelais::HauteurTexte(QLabel* texte) {
    // A layout gives a text its height for the width it had in mind, not for the width it
    // got: the lines of the width it got stay whole.
    texte->setMinimumHeight(0); // the height of the width alone
    texte->setMinimumHeight(texte->heightForWidth(texte->width()));
}

bool FenetreRelais::eventFilter(QObject* objet, QEvent* evenement) {
    if (evenement->type() == QEvent::Resize)
        if (auto* texte = qobject_cast<QLabel*>(objet)) HauteurTexte(texte);
    if (evenement->type() == QEvent::KeyPress) {
        auto* touche = static_cast<QKeyEvent*>(evenement);
        if ((touche->modifiers() & Qt::AltModifier) && touche->key() >= Qt::Key_A &&
            touche->key() <= Qt::Key_Z) {
            Raccourci(touche->key(), true);
            return true;
        }
    }
    return FenetrePanneau::eventFilter(objet, evenement);
}

void FenetreRelais::keyPressEvent(QKeyEvent* evenement) {
    const int touche = evenement->key();
    if (touche >= Qt::Key_A && touche <= Qt::Key_Z) {
        Raccourci(touche, evenement->modifiers() & Qt::AltModifier);
        return;
    }
    FenetrePanneau::keyPressEvent(evenement); // Enter is OK
}

void FenetreRelais::ApresHandler() {
    // The sheet in front is the model's, and the only one enabled.
    synchro_ = true;
    onglets_->setCurrentIndex(relais_.OngletCourant());
    for (int i = 0; i < onglets_->count(); ++i)
        onglets_->widget(i)->setEnabled(relais_.OngletActif(i));
    synchro_ = false;
    // A caption shows while a field of its row does, a unit with its field.
    for (const LigneCadre& l : lignes_) {
        bool visible = false;
        for (const auto& [w, unite] : l.champs) {
            const bool vu = w->isVisibleTo(w->parentWidget());
            unite->setVisible(vu);
            visible |= vu;
        }
        l.legende->setVisible(visible);
    }
    lieur_->AjusterCadres();
    for (QLabel* texte : textes_)
        if (texte->isVisible()) HauteurTexte(texte); // a text not laid out yet has no width
    setWindowTitle(Q(modele_.Titre()));
}

void InscrireFenetreRelais(DialogueQt& dialogue) {
    dialogue.InscrireGenre([](Panneau& p, DialogueQt&) -> std::unique_ptr<FenetrePanneau> {
        auto* relais = dynamic_cast<PanneauTable*>(&p);
        if (!relais) return nullptr;
        return std::make_unique<FenetreRelais>(*relais, QApplication::activeWindow());
    });
}

} // namespace tournesol
