#include "superposition/views/VueSuperposer.h"

#include "core/Dialogue.h"
#include "core/Etude.h"
#include "core/views/DialogueQt.h"
#include "core/views/Lieur.h"
#include "diagram/Plan.h"
#include "diagram/views/BasDuDiagramme.h"
#include "diagram/views/SurfaceQt.h"
#include "printing/views/FenetreProgression.h"
#include "printing/views/PageQt.h"
#include "superposition/ImpressionSuperposition.h"
#include "superposition/PanneauSuperposer.h"

#include <QAbstractButton>
#include <QColorDialog>
#include <QCoreApplication>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QVBoxLayout>

namespace tournesol {

namespace {

QString Q(const std::string& s) {
    return QString::fromStdString(s);
}
QString Q(std::string_view s) {
    return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size()));
}
QColor VersQt(Couleur c) {
    return QColor(Rouge(c), Vert(c), Bleu(c));
}

// While the print runs, events run between its blocks, so that Escape stops it.
class DialogueImpression : public DialogueSansFenetre {
public:
    void LaisserPasserEvenements() override { QCoreApplication::processEvents(); }
};

// A sample line of a place's colour, or nothing when its flag is off.
QIcon Echantillon(const QColor& couleur, bool montre, int style) {
    QPixmap p(36, 12);
    p.fill(Qt::transparent);
    if (montre) {
        QPainter peintre(&p);
        QPen stylo(couleur, 3);
        if (style == TRAIT_TIRET) stylo.setStyle(Qt::DashLine);
        peintre.setPen(stylo);
        peintre.drawLine(2, 6, 34, 6);
    }
    return QIcon(p);
}

// The picture of a layout, drawn from the table of positions: the two lines, each in its
// place's colour, with the relay's origin as a dot.
QIcon ImageDisposition(int n, const QColor& c1, const QColor& c2) {
    QPixmap p(72, 54);
    p.fill(Qt::white);
    QPainter peintre(&p);
    peintre.setRenderHint(QPainter::Antialiasing);
    const Disposition& d = DISPOSITIONS[static_cast<std::size_t>(n - 1)];
    // Two lines of the same size, up and a little right; the plane's origin in the middle.
    const double r = 0.35, x = 1.0;
    auto versPixel = [](const Complexe& c) {
        return QPointF(36.0 + 16.0 * c.Re, 27.0 - 16.0 * c.Im);
    };
    peintre.setPen(QPen(Qt::lightGray, 1));
    peintre.drawLine(0, 27, 72, 27);
    peintre.drawLine(36, 0, 36, 54);
    const std::pair<int, QColor> places[] = {{d.Position1, c1}, {d.Position2, c2}};
    for (std::size_t i = 0; i < 2; ++i) {
        const LignePlacee l = PlacerLigne(places[i].first, r, x, r, x);
        // The second line is drawn a pixel aside, so that two lines on one another both show.
        const QPointF decalage(i == 1 ? 2.0 : 0.0, 0.0);
        peintre.setPen(QPen(places[i].second, 3));
        peintre.drawLine(versPixel(l.De) + decalage, versPixel(l.A) + decalage);
        peintre.setBrush(places[i].second);
        peintre.drawEllipse(versPixel(l.De) + decalage, 3.5, 3.5);
    }
    return QIcon(p);
}

} // namespace

// ---- the diagram ----

DiagrammeSuperpose::DiagrammeSuperpose(PanneauSuperposer& modele, QWidget* parent)
    : QWidget(parent), modele_(modele) {
    setObjectName("imgCaractéristique");
    setMouseTracking(true);
    setMinimumSize(300, 300);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QRect DiagrammeSuperpose::Carre() const {
    const int cote = std::min(width(), height());
    return {(width() - cote) / 2, (height() - cote) / 2, cote, cote};
}

void DiagrammeSuperpose::paintEvent(QPaintEvent*) {
    QPainter peintre(this);
    peintre.fillRect(rect(), palette().window());
    const QRect carre = Carre();
    peintre.translate(carre.topLeft());
    peintre.setClipRect(QRect(QPoint(0, 0), carre.size()));
    SurfaceQt surface(peintre, carre.width(), carre.height());
    Plan plan(modele_.Superposer().etude(), surface);
    modele_.Dessiner(plan);
}

Complexe DiagrammeSuperpose::Point(const QMouseEvent* ev) const {
    const QRect carre = Carre();
    const Etude& e = modele_.Superposer().etude();
    const double cote = std::max(1, carre.width());
    const double px = ev->position().x() - carre.left(), py = ev->position().y() - carre.top();
    return Cart(px * e.ScaleWidth / cote + e.ScaleLeft, py * e.ScaleHeight / cote + e.ScaleTop);
}

void DiagrammeSuperpose::mouseMoveEvent(QMouseEvent* ev) {
    const Complexe p = Point(ev);
    modele_.SourisBouge(p.Re, p.Im);
    if (Apres) Apres();
}

void DiagrammeSuperpose::mousePressEvent(QMouseEvent* ev) {
    if (ev->button() != Qt::LeftButton) return;
    const Complexe p = Point(ev);
    modele_.SourisBas(p.Re, p.Im);
    if (Apres) Apres();
}

void DiagrammeSuperpose::mouseReleaseEvent(QMouseEvent* ev) {
    if (ev->button() != Qt::LeftButton) return;
    const Complexe p = Point(ev);
    modele_.SourisHaut(p.Re, p.Im);
    if (Apres) Apres();
}

// ---- the window ----

VueSuperposer::VueSuperposer(PanneauSuperposer& modele) : FenetrePanneau(modele), modele_(modele) {
    setWindowFlag(Qt::WindowMaximizeButtonHint, true);
    setWindowTitle(Q(modele.Titre()));
    auto* pile = new QVBoxLayout(this);
    auto* barre = new QMenuBar(this);
    pile->setMenuBar(barre);
    const std::pair<const char*, const char*> menus[] = {{"mnufichier", "&Fichier"},
                                                         {"mnucouleurs", "&Couleurs"},
                                                         {"mnuzoom", "&Zoom"},
                                                         {"mnuaide", "&?"}};
    for (const auto& [nom, texte] : menus) {
        QMenu* menu = barre->addMenu(texte);
        menu->setObjectName(nom);
        for (const Champ& c : modele.Champs())
            if (c.Groupe == nom) {
                QAction* action = menu->addAction(Q(c.Texte()));
                action->setObjectName(Q(c.Nom));
            }
    }
    auto ajouter = [&](const std::string& nom, QWidget* parent) -> QWidget* {
        const Champ* c = modele.Trouver(nom);
        return c ? CreerWidget(modele, *c, parent) : nullptr;
    };

    auto* corps = new QHBoxLayout;
    auto* gauche = new QVBoxLayout;
    diagramme_ = new DiagrammeSuperpose(modele_, this);
    diagramme_->Apres = [this] {
        lieur_->Rafraichir();
        ApresHandler();
    };
    gauche->addWidget(diagramme_, 1);
    gauche->addLayout(BasDuDiagramme(this));
    corps->addLayout(gauche, 1);

    auto* colonne = new QWidget(this);
    colonne->setObjectName("colonne");
    colonne->setFixedWidth(400);
    auto* cote = new QVBoxLayout(colonne);
    cote->setContentsMargins(0, 0, 0, 0);
    // Which colour is which place, always in sight.
    auto* legende = new QGroupBox("Places", colonne);
    auto* lignesLegende = new QVBoxLayout(legende);
    for (const char* nom : {"lblPlace1", "lblPlace2"})
        if (auto* w = qobject_cast<QLabel*>(ajouter(nom, legende))) {
            w->setWordWrap(true);
            lignesLegende->addWidget(w);
        }
    cote->addWidget(legende);
    auto* relais = new QGroupBox("Settings of the relays", colonne);
    auto* lignesRelais = new QHBoxLayout(relais);
    for (const char* nom : {"cmdregposte1", "cmdregposte2"})
        lignesRelais->addWidget(ajouter(nom, relais));
    cote->addWidget(relais);
    auto* commandes = new QGridLayout;
    const char* const noms[] = {"cmdaffiche", "cmdpostes", "cmdprint", "cmdquitter"};
    for (int i = 0; i < 4; ++i)
        commandes->addWidget(ajouter(noms[i], colonne), i / 2, i % 2);
    cote->addLayout(commandes);

    // The three frames of the shared place.
    auto* affiche = new QGroupBox(colonne);
    affiche->setObjectName("frmaffiche");
    auto* grille = new QGridLayout(affiche);
    grille->setVerticalSpacing(2);
    grille->addWidget(new QLabel("poste 1", affiche), 0, 1, Qt::AlignCenter);
    grille->addWidget(new QLabel("poste 2", affiche), 0, 2, Qt::AlignCenter);
    for (int c = 0; c < NOMBRE_CLASSES; ++c) {
        QWidget* etiquette = ajouter(PanneauSuperposer::NomEtiquette(c), affiche);
        if (auto* b = qobject_cast<QPushButton*>(etiquette)) b->setFlat(true);
        grille->addWidget(etiquette, c + 1, 0);
        for (const int p : {1, 2}) {
            auto* zone =
                qobject_cast<QAbstractButton*>(ajouter(PanneauSuperposer::NomZone(p, c), affiche));
            if (!zone) continue;
            zone->setText({});
            zone->setCheckable(true);
            zone->setIconSize({36, 12});
            zone->setToolTip(QString("%1 (%2)").arg(c + 1).arg(p));
            grille->addWidget(zone, c + 1, p, Qt::AlignCenter);
        }
    }
    cote->addWidget(affiche);
    auto* postes = new QGroupBox(colonne);
    postes->setObjectName("frmpostsélec");
    auto* grillePostes = new QGridLayout(postes);
    const std::pair<const char*, const char*> rapports[] = {{"Poste", "Substation A"},
                                                            {"Départ", "Substation B"},
                                                            {"Piquage", "Substation C"},
                                                            {"Protection", "Relay"}};
    for (int r = 0; r < 4; ++r) {
        grillePostes->addWidget(new QLabel(rapports[r].second, postes), r + 1, 0);
        for (const int p : {1, 2})
            grillePostes->addWidget(
                ajouter(std::string("Rap") + rapports[r].first + std::to_string(p), postes), r + 1,
                p);
    }
    cote->addWidget(postes);
    auto* position = new QGroupBox(colonne);
    position->setObjectName("frmposition");
    auto* grillePosition = new QGridLayout(position);
    for (int n = 1; n <= NOMBRE_DISPOSITIONS; ++n) {
        auto* bouton = qobject_cast<QAbstractButton*>(
            ajouter(std::string(BOUTONS_DISPOSITION[static_cast<std::size_t>(n - 1)]), position));
        if (!bouton) continue;
        bouton->setCheckable(true);
        bouton->setIconSize({72, 54});
        bouton->setText(QString::number(n));
        grillePosition->addWidget(bouton, (n - 1) / 4, (n - 1) % 4);
    }
    cote->addWidget(position);
    cote->addStretch();
    corps->addWidget(colonne);
    pile->addLayout(corps, 1);

    for (QWidget* w : findChildren<QWidget*>())
        if (!w->objectName().isEmpty()) w->installEventFilter(this);
    for (int i = 1; i <= 4; ++i)
        if (auto* a = findChild<QAction*>(QString("mnucouleur(%1)").arg(i)))
            connect(a, &QAction::triggered, this, [this, i] { ChoisirCouleur(i); });
    if (auto* a = findChild<QAction*>("mnuquitter"))
        a->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    if (auto* a = findChild<QAction*>("mnuimprimer")) a->setShortcut(QKeySequence::Print);

    progression_ = new FenetreProgression(this);
    progression_->Echap = [this] {
        modele_.Touche(Panneau::TOUCHE_ECHAP);
        return modele_.Superposer().etude().ArretImpression;
    };
    modele_.DefinirImprimeur([this](PanneauSuperposer&) {
        QPrinter imprimante(QPrinter::HighResolution);
        imprimante.setPageSize(QPageSize(QPageSize::A4));
        QPrintDialog choix(&imprimante, this);
        choix.setObjectName("dlgImprimante");
        if (choix.exec() != QDialog::Accepted) return;
        ImprimerSur(imprimante);
    });
    Lier();
}

void VueSuperposer::ImprimerSur(QPagedPaintDevice& support) {
    PageQt page(support);
    EtatImpression etat;
    etat.SuiviProgression = [this](bool ouvert, double valeur, const std::string& texte) {
        progression_->Suivre(ouvert, valeur, texte);
    };
    DialogueImpression evenements;
    ImprimerSuperposition(modele_.Superposer(), evenements, page, etat);
    page.Fermer();
}

bool VueSuperposer::eventFilter(QObject* objet, QEvent* evenement) {
    if (evenement->type() == QEvent::Enter && lieur_ && !objet->objectName().isEmpty() &&
        objet != diagramme_) {
        modele_.Survoler(objet->objectName().toStdString());
        lieur_->Rafraichir();
    }
    return FenetrePanneau::eventFilter(objet, evenement);
}

void VueSuperposer::Peindre() {
    const Etude& e = modele_.Superposer().etude();
    const QColor couleurs[2] = {VersQt(e.CouleurPoste1), VersQt(e.CouleurPoste2)};
    for (const int p : {1, 2}) {
        const QColor& couleur = couleurs[p - 1];
        if (auto* l = findChild<QLabel*>(QString("lblPlace%1").arg(p))) {
            // A thick sample of the place's colour before its name.
            l->setStyleSheet(QString("QLabel { border-left: 14px solid %1; padding-left: 6px; "
                                     "color: %1; font-weight: bold; }")
                                 .arg(couleur.name()));
        }
        for (int c = 0; c < NOMBRE_CLASSES; ++c)
            if (auto* z = findChild<QAbstractButton*>(Q(PanneauSuperposer::NomZone(p, c))))
                z->setIcon(Echantillon(couleur, z->isChecked(),
                                       c == CLASSE_ZONES ? TRAIT_TIRET : TRAIT_PLEIN));
        // The substation where the relay stands, by the end number of its line.
        const int bout = modele_.Superposer().PlaceNumero(p).Bloc.pp;
        const char* const quoi[] = {"Poste", "Départ", "Piquage", "Protection"};
        for (int i = 0; i < 4; ++i)
            if (auto* l = findChild<QLabel*>(QString("Rap%1%2").arg(quoi[i]).arg(p)))
                l->setStyleSheet(QString("QLabel { color: %1; %2 }")
                                     .arg(couleur.name(), i == bout ? "font-weight: bold;" : ""));
    }
    for (int n = 1; n <= NOMBRE_DISPOSITIONS; ++n)
        if (auto* b = findChild<QAbstractButton*>(
                Q(BOUTONS_DISPOSITION[static_cast<std::size_t>(n - 1)])))
            b->setIcon(ImageDisposition(n, couleurs[0], couleurs[1]));
}

void VueSuperposer::ApresHandler() {
    setWindowTitle(Q(modele_.Titre()));
    if (modele_.Version() != version_) {
        version_ = modele_.Version();
        Peindre();
        diagramme_->update();
    }
}

void VueSuperposer::ChoisirCouleur(int i) {
    const QColor choisie = QColorDialog::getColor(VersQt(modele_.CouleurMenu(i)), this);
    if (!choisie.isValid()) return;
    modele_.ChangerCouleur(i, choisie.red() | (choisie.green() << 8) | (choisie.blue() << 16));
    lieur_->Rafraichir();
    ApresHandler();
}

void InscrireVueSuperposer(DialogueQt& d) {
    d.Inscrire("frmsuperposer", [](Panneau& p, DialogueQt&) -> std::unique_ptr<FenetrePanneau> {
        return std::make_unique<VueSuperposer>(dynamic_cast<PanneauSuperposer&>(p));
    });
}

} // namespace tournesol
