// The R-X plane in primary ohms: R to the right, X upwards, the relay at the origin. Its scale
// is the study's (ScaleLeft, ScaleTop, ScaleWidth, ScaleHeight); it keeps the counted lists of
// what was plotted and draws straight to its surface.
#pragma once

#include "core/Complexe.h"
#include "diagram/Surface.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tournesol {

struct Etude;

struct SegmentImage {
    Complexe A, B;
    tournesol::Couleur Couleur = 0;
    std::int16_t Style = TRAIT_PLEIN;
    std::int16_t Largeur = 1;
};

struct ArcImage {
    Complexe Centre, Debut, Fin; // from Debut to Fin, counter-clockwise
    tournesol::Couleur Couleur = 0;
    std::int16_t Style = TRAIT_PLEIN;
    std::int16_t Largeur = 1;
};

struct EtiquettePlan {
    std::string Texte;
    double X = 0.0, Y = 0.0; // plane coordinates of the pen when it was made
    tournesol::Couleur Couleur = 0;
    tournesol::Alignement Alignement = tournesol::Alignement::Centre;
    tournesol::Police Police;
};

// Page units of the frame that a drawing takes on paper.
struct CadreImpression {
    double Left = 0.0, Top = 0.0, Width = 0.0, Height = 0.0;
};

// What the working window lets the user show or hide on the diagram.
struct OptionsAffichage {
    bool Cercles = false;   // chkcercles: the rest of the circles in dots
    bool Points = true;     // chkpoints: neuralgic points
    bool Etiquettes = true; // chklabels: their names
    bool Transit1 = true;   // legend entry "Transit"
    bool Transit2 = true;   // legend entry "line image"
    bool Transit3 = true;   // legend entry "lines at 30°"
    // The parts of a relay's characteristic, by their colour.
    bool Antipompage = true;  // CouleurAntipompage
    bool Monophase = true;    // CouleurMonophase
    bool Triphase = true;     // CouleurTriphase
    bool Zones = true;        // CouleurZones
    bool Directionnel = true; // CouleurDirectionnel
};

// Whether a figure of that colour is shown: the flag of the part of the characteristic drawn
// in it; a colour that is none of theirs is always shown.
bool CouleurAffichee(const Etude& e, const OptionsAffichage& options, Couleur couleur);

void SetSegment(SegmentImage& s, const Complexe& a, const Complexe& b, Couleur couleur, int style,
                int largeur);
void SetArc(ArcImage& arc, const Complexe& centre, const Complexe& debut, const Complexe& fin,
            Couleur couleur, int style, int largeur);
// True when the lines of the two segments cut within the first or within the second; the
// point goes to `point`. With one segment vertical (its ends less than 0.1 ohm apart in R) the
// point's X uses the R that `point` holds on entry.
bool SegmentCross(const SegmentImage& s1, const SegmentImage& s2, Complexe& point);
// Keeps the five colours of a characteristic apart: a colour equal to one after it in the order
// anti-out-of-step, single phase, three phase, zones, directional is raised by 1.
void ZoneColours(Etude& e);
// The step of the graduations of a plane of that size.
int PasGraduation(double largeur, double hauteur);

// Zoom commands on the study's scale. The ideal zoom fits the plane to the load point N1.
void ZoomIdeal(Etude& e);
void ZoomPlus(Etude& e);
void ZoomMoins(Etude& e);
// A square window centred on the first point of a drag; false, and nothing changed, for a drag
// of no size.
bool ZoomCarre(Etude& e, double x0, double y0, double x1, double y1);

class Plan {
public:
    Plan(Etude& e, Surface& surface);

    Etude& etude() { return e_; }
    Surface& surface() { return *surface_; }
    // Drawing on another surface (a page) from now on.
    void ChangerSurface(Surface& surface) { surface_ = &surface; }

    void ClearPlan();
    // Clears the plane, draws the axes, the unit marks and the graduations.
    void DrawPlan();

    // Screen mapping, on the surface's whole size.
    double VersEcranX(double r) const;
    double VersEcranY(double x) const;
    double EcranVersPlanX(double px) const;
    double EcranVersPlanY(double py) const;
    // Paper mapping, on PrintFrame with one scale for both axes.
    CadreImpression PrintFrame;
    double PlanToPrintX(double r) const;
    double PlanToPrintY(double x) const;
    double PrintToPlanX(double x) const;
    double PrintToPlanY(double y) const;

    // Primitives. A flag sends each to paper; the plane's default is `Papier`.
    SegmentImage& NewSegment(const Complexe& a, const Complexe& b, Couleur couleur, int style,
                             int largeur);
    void DrawSegment(const SegmentImage& s, bool papier);
    ArcImage& NewArc(const Complexe& centre, const Complexe& debut, const Complexe& fin,
                     Couleur couleur, int style, int largeur);
    void DrawArc(const ArcImage& arc, bool cercleEntier, bool papier);
    Complexe& NewMark(double re, double im);
    void DrawMark(const Complexe& point, Couleur couleur, bool papier);
    // Labels at the pen: a tick label is centred there, a plane label starts there.
    void NewTickLabel(const std::string& texte);
    void NewTickLabel(double valeur);
    void NewPlaneLabel(const std::string& texte, const Police& police);
    void DeplacerPlume(double r, double x);
    // A point's name, put beside its mark once every mark of the drawing is known: the first
    // of the places around the point (upper right, lower right, upper left, lower left, right,
    // left, above, below, then the same a line farther) where it stands whole inside the
    // drawing, clear of every label, name and mark drawn; where none is clear, the place it
    // covers least of them. PlacerEtiquettesPoints puts the names asked for since the last.
    void NewPointLabel(const std::string& texte, const Complexe& point);
    void PlacerEtiquettesPoints();

    const std::vector<SegmentImage>& Segments() const { return segments_; }
    const std::vector<ArcImage>& Arcs() const { return arcs_; }
    const std::vector<Complexe>& Marques() const { return marques_; }
    const std::vector<EtiquettePlan>& Etiquettes() const { return etiquettes_; }
    SegmentImage CurSeg;
    ArcImage CurArc;
    Complexe CurMark;
    double CurrentX = 0.0, CurrentY = 0.0;

    Couleur Fond = 0xFFFFFF; // background
    Couleur Encre = 0;       // foreground
    Police PoliceEtiquettes{"Arial", 8.0};
    bool Papier = false;                   // the drawing goes to paper
    bool CaracteristiqueSuspendue = false; // the relay's characteristic is not redrawn

    // A rectangle of the surface, in its units, y downwards.
    struct Boite {
        double gauche = 0.0, haut = 0.0, droite = 0.0, bas = 0.0;
    };

private:
    // Where a text stands on the surface at (x, y), centred there or starting there.
    Boite BoiteTexte(double x, double y, const std::string& texte, const Police& police,
                     Alignement alignement) const;
    struct NomDePoint {
        std::string texte;
        Complexe point;
    };
    void Etiqueter(const std::string& texte, const Police& police, Alignement alignement,
                   Couleur couleur);
    // The drawing's bounds on the surface: the whole surface, or PrintFrame on paper.
    Boite Limites() const;
    // Half the size of a mark's cross, in the surface's units.
    double DemiCroix() const;
    // From the plane to the surface, on screen or on paper.
    double SurfaceX(double r) const;
    double SurfaceY(double x) const;
    void ArcPapier(const ArcImage& arc, double rayon, double debut, double fin, bool entier,
                   const Stylo& stylo);
    Stylo StyloPapier(Couleur couleur, int style, int largeur) const;

    Etude& e_;
    Surface* surface_;
    std::vector<SegmentImage> segments_;
    std::vector<ArcImage> arcs_;
    std::vector<Complexe> marques_;
    std::vector<EtiquettePlan> etiquettes_;
    std::vector<Boite> occupees_; // what the labels and marks drawn take on the surface
    std::vector<NomDePoint> nomsEnAttente_;
};

// The load area and the line, then the characteristic of the current relay; the drawing is
// then complete.
void DrawRelay(Plan& plan, const OptionsAffichage& options);

// The characteristic of the current relay alone, through the trace it registered; false when
// nothing was drawn (no valid calculation, the relay not ready, a relay without a trace).
bool DrawCaracteristique(Plan& plan, const OptionsAffichage& options);

// Each relay registers the drawing of its characteristic.
using TraceCaracteristique = void (*)(Plan&, const OptionsAffichage&);
void InscrireTraceRelais(int id_protection, TraceCaracteristique trace);

// A relay's figure drawn from its slots: every arc, then every segment, each whose colour is
// shown; an empty slot (every point at the origin) is a figure the relay does not show.
bool EmplacementVide(const ArcImage& a);
bool EmplacementVide(const SegmentImage& s);
void DessinerFigure(Plan& plan, const OptionsAffichage& options, const std::vector<ArcImage>& arcs,
                    const std::vector<SegmentImage>& segments);

// The load area of the current report case with its neuralgic points, the line image, the
// lines at 30 degrees and the horizontal limits.
void TransitDraw(Plan& plan, const OptionsAffichage& options);

} // namespace tournesol
