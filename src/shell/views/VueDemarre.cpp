#include "shell/views/VueDemarre.h"

#include "core/Dialogue.h"
#include "core/Etude.h"
#include "core/Registre.h"
#include "core/views/Lieur.h"
#include "diagnostics/Diagnostics.h"
#include "diagram/Plan.h"
#include "diagram/views/BasDuDiagramme.h"
#include "diagram/views/SurfaceQt.h"
#include "printing/Impression.h"
#include "printing/views/FenetreProgression.h"
#include "printing/views/PageQt.h"
#include "shell/PanneauDemarre.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QCoreApplication>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QTimer>
#include <QVBoxLayout>

namespace tournesol {

namespace {
QString Q(const std::string& s) {
    return QString::fromStdString(s);
}

// While the report prints, events run between its blocks, so that Escape stops it.
class DialogueImpression : public DialogueSansFenetre {
public:
    void LaisserPasserEvenements() override { QCoreApplication::processEvents(); }
};
QColor VersQt(Couleur c) {
    return QColor(Rouge(c), Vert(c), Bleu(c));
}

// frmDiagnostics: in the frame of each relay, each rule's text, limit and unit on one line.
void ConstruireDiagnostics(FenetrePanneau& fenetre, FenetreDiagnostics& modele) {
    auto* pile = new QVBoxLayout(&fenetre);
    auto* corps = new QWidget(&fenetre);
    corps->setMinimumWidth(520); // a rule's text on two or three lines, not five
    auto* lignes = new QVBoxLayout(corps);
    lignes->setContentsMargins(0, 0, 0, 0);
    auto ajouter = [&](const std::string& nom, QWidget* parent) -> QWidget* {
        const Champ* c = modele.Trouver(nom);
        return c ? FenetrePanneau::CreerWidget(modele, *c, parent) : nullptr;
    };
    if (QWidget* w = ajouter("lblNonCalcule", corps)) lignes->addWidget(w);
    for (int id = 1; id <= NOMBRE_RELAIS; ++id) {
        const BlocRegles& bloc = *BlocDuRelais(id);
        auto* cadre = new QGroupBox(corps);
        cadre->setObjectName(Q(FenetreDiagnostics::NomCadre(id)));
        auto* grille = new QGridLayout(cadre);
        grille->setColumnStretch(0, 1);
        int ligne = 0;
        if (QWidget* w = ajouter(FenetreDiagnostics::NomConforme(id), cadre))
            grille->addWidget(w, ligne++, 0, 1, 3);
        for (int n = bloc.PremiereAffichee; n <= bloc.DerniereAffichee; ++n) {
            QWidget* texte = ajouter(FenetreDiagnostics::NomTexte(n), cadre);
            if (!texte) continue;
            grille->addWidget(texte, ligne, 0);
            if (QWidget* valeur = ajouter(FenetreDiagnostics::NomValeur(n), cadre))
                grille->addWidget(valeur, ligne, 1, Qt::AlignRight | Qt::AlignTop);
            if (QWidget* unite = ajouter(FenetreDiagnostics::NomUnite(n), cadre))
                grille->addWidget(unite, ligne, 2, Qt::AlignLeft | Qt::AlignTop);
            ++ligne;
        }
        lignes->addWidget(cadre);
    }
    lignes->addStretch();
    pile->addWidget(FenetrePanneau::Defilante(corps, &fenetre), 1);
    auto* boutons = new QHBoxLayout;
    boutons->addStretch();
    if (QWidget* ok = ajouter("cmdOK", &fenetre)) boutons->addWidget(ok);
    pile->addLayout(boutons);
    fenetre.Lier();
}
} // namespace

PlacesDiagnostics PlacerDiagnostics(const QRect& ecran, const QRect& fenetre, int largeurMinimale,
                                    QSize diagnostics, int colonne) {
    constexpr int LARGEUR_LISIBLE = 360; // a rule's text on a few lines still
    PlacesDiagnostics places{fenetre,
                             QRect(QPoint(fenetre.right() + 1, fenetre.top()), diagnostics)};
    if (places.diagnostics.right() <= ecran.right()) return places;
    // The working window gives up what is missing, down to its minimum width; the diagnostics
    // window, when still too wide, narrows down to a width where its texts are still read.
    const int largeur =
        std::min(fenetre.width(), std::max(largeurMinimale, ecran.width() - diagnostics.width()));
    if (ecran.width() - largeur >= LARGEUR_LISIBLE) {
        places.fenetre = QRect(ecran.left(), fenetre.top(), largeur, fenetre.height());
        places.diagnostics =
            QRect(places.fenetre.right() + 1, fenetre.top(),
                  std::min(diagnostics.width(), ecran.right() - places.fenetre.right()),
                  diagnostics.height());
        return places;
    }
    // A screen too small for both: over the side column, never over more of the diagram than
    // the diagnostics window's width beyond the column.
    places.diagnostics.moveLeft(
        std::max(ecran.left(), fenetre.right() + 1 - std::max(colonne, diagnostics.width())));
    return places;
}

// ---- the diagram ----

Diagramme::Diagramme(PanneauDemarre& modele, Etude& e, QWidget* parent)
    : QWidget(parent), modele_(modele), e_(e) {
    setObjectName("imgCaractéristique");
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    // The diagram takes what the side column leaves: large on a desktop, smaller on a laptop.
    setMinimumSize(240, 240);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize Diagramme::sizeHint() const {
    return {760, 720};
}

void Diagramme::GarderProportions() {
    // One ohm is as long on both axes: the height follows the width, about the same centre.
    if (width() <= 0 || height() <= 0 || !(e_.ScaleWidth > 0.0f)) return;
    const double centre = e_.ScaleTop + e_.ScaleHeight / 2.0;
    const double hauteur = -e_.ScaleWidth * static_cast<double>(height()) / width();
    e_.ScaleHeight = static_cast<float>(hauteur);
    e_.ScaleTop = static_cast<float>(centre - hauteur / 2.0);
}

void Diagramme::Dessiner() {
    GarderProportions();
    update();
}

void Diagramme::resizeEvent(QResizeEvent*) {
    GarderProportions();
}

void Diagramme::paintEvent(QPaintEvent*) {
    QPainter peintre(this);
    SurfaceQt surface(peintre, width(), height());
    Plan plan(e_, surface);
    modele_.Dessiner(plan);
}

double Diagramme::VersR(double px) const {
    return px * e_.ScaleWidth / width() + e_.ScaleLeft;
}
double Diagramme::VersX(double py) const {
    return py * e_.ScaleHeight / height() + e_.ScaleTop;
}

void Diagramme::mouseMoveEvent(QMouseEvent* ev) {
    modele_.SourisBouge(VersR(ev->position().x()), VersX(ev->position().y()));
    if (Apres) Apres();
}

void Diagramme::mousePressEvent(QMouseEvent* ev) {
    setFocus();
    if (ev->button() == Qt::RightButton) {
        if (MenuZoom) MenuZoom->popup(ev->globalPosition().toPoint());
        return;
    }
    const int outil = modele_.Outil();
    if ((ev->modifiers() & Qt::ShiftModifier) && (outil == 2 || outil == 4 || outil == 5)) {
        if (MenuPlume) MenuPlume(ev->globalPosition().toPoint());
        return;
    }
    modele_.SourisBas(VersR(ev->position().x()), VersX(ev->position().y()));
    if (Apres) Apres();
}

void Diagramme::mouseReleaseEvent(QMouseEvent* ev) {
    if (ev->button() != Qt::LeftButton) return;
    modele_.SourisHaut(VersR(ev->position().x()), VersX(ev->position().y()));
    if (Apres) Apres();
}

void Diagramme::leaveEvent(QEvent*) {
    // A window that hides or closes sends a last leave: then there is nothing to show.
    if (!isVisible() || !Apres) return;
    modele_.SourisSortie();
    Apres();
}

void Diagramme::keyPressEvent(QKeyEvent* ev) {
    if (ev->key() == Qt::Key_Return || ev->key() == Qt::Key_Enter)
        modele_.Touche(Panneau::TOUCHE_ENTREE);
    else if (ev->key() == Qt::Key_Escape)
        modele_.Touche(Panneau::TOUCHE_ECHAP);
    else if (ev->key() == Qt::Key_Backspace)
        modele_.Caractere("\b");
    else if (!ev->text().isEmpty() && ev->text().at(0).unicode() >= 32)
        modele_.Caractere(ev->text().toStdString());
    else
        return QWidget::keyPressEvent(ev);
    if (Apres) Apres();
}

// ---- the window ----

VueDemarre::VueDemarre(PanneauDemarre& modele, Etude& e)
    : FenetrePanneau(modele), demarre_(modele), e_(e) {
    setWindowFlag(Qt::WindowMaximizeButtonHint, true);
    auto* pile = new QVBoxLayout(this);
    auto* barre = new QMenuBar(this);
    pile->setMenuBar(barre);
    const std::pair<const char*, const char*> menus[] = {{"mnuPoste", "substation"},
                                                         {"mnuRéseau", "network"},
                                                         {"mnuCouleurs", "&drawing"},
                                                         {"mnuZoom", "Zoom"}};
    QMenu* zoom = nullptr;
    for (const auto& [nom, texte] : menus) {
        QMenu* menu = barre->addMenu(texte);
        menu->setObjectName(nom);
        for (const Champ& c : modele.Champs())
            if (c.Groupe == nom) {
                QAction* action = menu->addAction(Q(c.Texte()));
                action->setObjectName(Q(c.Nom));
            }
        if (std::string(nom) == "mnuZoom") zoom = menu;
    }

    auto* corps = new QHBoxLayout;
    auto* gauche = new QVBoxLayout;
    diagramme_ = new Diagramme(demarre_, e_, this);
    diagramme_->MenuZoom = zoom;
    diagramme_->Apres = [this] {
        lieur_->Rafraichir();
        ApresHandler();
    };
    diagramme_->MenuPlume = [this](QPoint ou) { MenuPlume(ou); };
    gauche->addWidget(diagramme_, 1);
    gauche->addLayout(BasDuDiagramme(this));
    corps->addLayout(gauche, 1);

    // The side column: the relay and the commands first, so that they show on a small screen;
    // the rest scrolls.
    auto* colonne = new QWidget(this);
    colonne->setObjectName("colonne");
    auto* cote = new QVBoxLayout(colonne);
    cote->setContentsMargins(0, 0, 4, 0);
    const std::pair<const char*, const char*> groupes[] = {
        {"relais", "Relay"},        {"commandes", "Commands"},
        {"reports", "Load report"}, {"Characteristics", "Characteristics"},
        {"affichage", "Display"},   {"outils", "Drawing tools"}};
    for (const auto& [groupe, titre] : groupes) {
        auto* cadre = new QGroupBox(titre, colonne);
        if (std::string(groupe) == "outils" || std::string(groupe) == "relais") {
            // Side by side: three tools a row, the two relay buttons on one row.
            auto* grille = new QGridLayout(cadre);
            grille->setSpacing(4);
            int i = 0;
            const int parLigne = std::string(groupe) == "outils" ? 3 : 2;
            for (const Champ& c : modele.Champs())
                if (c.Groupe == groupe) {
                    grille->addWidget(CreerWidget(modele, c, cadre), i / parLigne, i % parLigne);
                    ++i;
                }
        } else {
            auto* formulaire = new QFormLayout(cadre);
            Construire(modele, groupe, formulaire, nullptr, cadre);
        }
        cote->addWidget(cadre);
    }
    auto* aide = new QLabel(colonne);
    aide->setObjectName("panHelp");
    aide->setWordWrap(true);
    cote->addWidget(aide);
    cote->addStretch();
    for (const char* outil : {"cmdhelp", "cmdDiagnostics"})
        if (auto* b = findChild<QPushButton*>(outil)) b->setCheckable(true);
    for (int i = 0; i < 6; ++i)
        if (auto* b = findChild<QPushButton*>(QString("cmdoption(%1)").arg(i)))
            b->setCheckable(true); // the tool in force stays pressed
    corps->addWidget(Defilante(colonne, this));
    pile->addLayout(corps, 1);

    for (int i = 1; i <= 8; ++i)
        if (auto* a = findChild<QAction*>(QString("mnucouleur(%1)").arg(i)))
            connect(a, &QAction::triggered, this, [this, i] { ChoisirCouleur(i); });
    // The report goes to the printer chosen in the printer's dialog (a PDF file among them).
    progression_ = new FenetreProgression(this);
    progression_->Echap = [this] {
        demarre_.Touche(Panneau::TOUCHE_ECHAP);
        return e_.ArretImpression;
    };
    demarre_.DefinirImprimeur([this](PanneauDemarre&) {
        QPrinter imprimante(QPrinter::HighResolution);
        imprimante.setPageSize(QPageSize(QPageSize::A4));
        QPrintDialog choix(&imprimante, this);
        choix.setObjectName("dlgImprimante");
        if (choix.exec() != QDialog::Accepted) return;
        ImprimerSur(imprimante);
    });
    // The usual keys of a desktop program, and what the terse commands do.
    const std::pair<const char*, QKeySequence> raccourcis[] = {
        {"mnuSauvegarde", QKeySequence::Save},
        {"mnuImprimer", QKeySequence::Print},
        {"mnuQuitter", QKeySequence(Qt::CTRL | Qt::Key_Q)}};
    for (const auto& [nom, touches] : raccourcis)
        if (auto* a = findChild<QAction*>(nom)) a->setShortcut(touches);
    const std::pair<const char*, const char*> bulles[] = {
        {"cmdextra", "opens the relay's panel: its settings, computed and set (Enter)"},
        {"cmdhelp", "shows or hides the help"},
        {"cmdsave", "save the network values and the settings (Ctrl+S)"},
        {"cmdprint", "document printing (Ctrl+P)"},
        {"cmdquitter", "leave (Ctrl+Q)"}};
    for (const auto& [nom, bulle] : bulles)
        if (auto* w = findChild<QWidget*>(nom)) w->setToolTip(bulle);
    for (int i = 0; i < 6; ++i)
        if (auto* b = findChild<QPushButton*>(QString("cmdoption(%1)").arg(i)))
            b->setToolTip(Q(PanneauDemarre::TexteOutil(i)));
    Lier();
}

VueDemarre::~VueDemarre() {
    // The diagram outlives this part of the window for a moment: it calls nothing of it.
    diagramme_->Apres = nullptr;
    diagramme_->MenuPlume = nullptr;
}

void VueDemarre::ImprimerSur(QPagedPaintDevice& support) {
    PageQt page(support);
    EtatImpression etat;
    etat.SuiviProgression = [this](bool ouvert, double valeur, const std::string& texte) {
        progression_->Suivre(ouvert, valeur, texte);
    };
    OptionsImpression options;
    options.textesRegles = [](int regle) { return TextesRegleRapport(regle); };
    options.dessin = [this](Plan& plan) { demarre_.Dessiner(plan); };
    DialogueImpression evenements;
    Imprimer(e_, evenements, page, etat, options);
    page.Fermer();
}

void VueDemarre::showEvent(QShowEvent* evenement) {
    FenetrePanneau::showEvent(evenement);
    if (demarree_) return;
    demarree_ = true;
    // Once the window is up, a new line asks for its network: the panels come over it.
    QTimer::singleShot(0, this, [this] {
        demarre_.Demarrer();
        Apres();
    });
}

void VueDemarre::ApresHandler() {
    // The legend: a sample of each characteristic's line in its colour beside its label, which
    // stays in the text's colour so that a light colour is still read.
    for (const char* nom : {"txtTransit1", "txtTransit2", "txttransit3", "txtZoneanti", "txtmono",
                            "txttri", "txtZones", "txtdir"})
        if (auto* boite = findChild<QCheckBox*>(nom)) {
            const QColor couleur = VersQt(demarre_.CouleurLegende(nom));
            if (boite->property("couleur").value<QColor>() == couleur && !boite->icon().isNull())
                continue;
            QPixmap echantillon(28, 12);
            echantillon.fill(Qt::transparent);
            QPainter peintre(&echantillon);
            peintre.setPen(QPen(couleur, 3));
            peintre.drawLine(1, 6, 27, 6);
            peintre.end();
            boite->setIconSize(echantillon.size());
            boite->setIcon(QIcon(echantillon));
            boite->setProperty("couleur", couleur);
        }
    setWindowTitle(Q(demarre_.TitreAffiche()));
    // The diagnostics window stays beside the working window while cmdDiagnostics is down.
    FenetreDiagnostics* diagnostics = demarre_.Diagnostics();
    if (diagnostics && !diagnostics_) {
        diagnostics_ = new FenetrePanneau(*diagnostics, this);
        ConstruireDiagnostics(*diagnostics_, *diagnostics);
        diagnostics_->setModal(false);
        diagnostics_->setAttribute(Qt::WA_DeleteOnClose);
        diagnostics_->setWindowFlag(Qt::WindowStaysOnTopHint, true);
        // Closed by the user: the button comes up once the window is gone (its model with it).
        connect(
            diagnostics_, &QDialog::finished, this,
            [this] {
                if (demarre_.Diagnostics()) {
                    demarre_.Trouver("cmdDiagnostics")->Valeur = false;
                    demarre_.Cliquer("cmdDiagnostics");
                    lieur_->Rafraichir();
                }
            },
            Qt::QueuedConnection);
        // Beside the working window; on a screen without room on its right, the working
        // window narrows, its diagram with it, rather than be covered.
        diagnostics_->resize(TailleSurEcran(*diagnostics_));
        if (const QScreen* ecran = screen(); ecran && isVisible()) {
            const QMargins cadre(geometry().left() - frameGeometry().left(),
                                 geometry().top() - frameGeometry().top(),
                                 frameGeometry().right() - geometry().right(),
                                 frameGeometry().bottom() - geometry().bottom());
            const PlacesDiagnostics places = PlacerDiagnostics(
                ecran->availableGeometry(), frameGeometry(),
                minimumSizeHint().width() + cadre.left() + cadre.right(),
                diagnostics_->size() + QSize(cadre.left() + cadre.right(), 0),
                findChild<QWidget*>("colonne") ? findChild<QWidget*>("colonne")->width() : 0);
            if (places.fenetre != frameGeometry()) {
                avantDiagnostics_ = {geometry(), isMaximized()};
                if (isMaximized()) showNormal();
                setGeometry(places.fenetre.marginsRemoved(cadre));
            }
            diagnostics_->resize(places.diagnostics.width() - cadre.left() - cadre.right(),
                                 diagnostics_->height());
            diagnostics_->move(places.diagnostics.topLeft());
        }
        diagnostics_->show();
    } else if (!diagnostics && diagnostics_) {
        // Its model is gone already: the window goes without asking it anything.
        diagnostics_->hide();
        diagnostics_->deleteLater();
        diagnostics_ = nullptr;
        if (avantDiagnostics_) { // the working window takes back the room it gave
            if (avantDiagnostics_->second)
                showMaximized();
            else
                setGeometry(avantDiagnostics_->first);
            avantDiagnostics_.reset();
        }
    } else if (diagnostics_ && diagnostics_->Liaison()) {
        diagnostics_->Liaison()->Rafraichir();
    }
    if (demarre_.Version() != version_) {
        version_ = demarre_.Version();
        diagramme_->Dessiner();
    }
}

void VueDemarre::ChoisirCouleur(int i) {
    const QColor choisie = QColorDialog::getColor(VersQt(demarre_.CouleurMenu(i)), this);
    if (!choisie.isValid()) return;
    demarre_.ChangerCouleur(i, choisie.red() | (choisie.green() << 8) | (choisie.blue() << 16));
    lieur_->Rafraichir();
    ApresHandler();
}

void VueDemarre::MenuPlume(QPoint ou) {
    QMenu menu(this);
    QAction* couleur = menu.addAction("colour...");
    QMenu* epaisseur = menu.addMenu("width");
    for (int w = 1; w <= 5; ++w)
        epaisseur->addAction(QString::number(w))->setData(w);
    QMenu* style = menu.addMenu("Style line : ");
    const char* styles[] = {"solid line",           "dash",        "point",      "dash - point",
                            "dash - point - point", "transparent", "inside full"};
    for (int s = 0; s < 7; ++s)
        style->addAction(styles[s])->setData(100 + s);
    QAction* choix = menu.exec(ou);
    if (!choix) return;
    int r = e_.PlumeRouge, v = e_.PlumeVert, b = e_.PlumeBleu;
    int w = e_.PlumeEpaisseur, s = e_.PlumeStyle;
    if (choix == couleur) {
        const QColor c = QColorDialog::getColor(QColor(r, v, b), this);
        if (!c.isValid()) return;
        r = c.red();
        v = c.green();
        b = c.blue();
    } else if (choix->data().toInt() >= 100) {
        s = choix->data().toInt() - 100;
    } else {
        w = choix->data().toInt();
    }
    demarre_.ChangerPlume(r, v, b, w, s);
}

} // namespace tournesol
