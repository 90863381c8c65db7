// A user who saves one relay of one line again and again, for the tests of two users saving at
// the same moment: tournesol_ecrivain_essai BASE POSTE DEPART PROTECTION NUMERO MARQUE NOMBRE.
// Save i writes the values MARQUE * 10000 + i into the line and the relay, so that a study read
// back tells which save it comes from and whether it is whole. Exit 0 when every save succeeded.
#include "../ListeEssai.h"
#include "core/Dialogue.h"
#include "database/BaseEtudesSql.h"

#include <iostream>
#include <string>

using namespace tournesol;

int main(int argc, char** argv) {
    if (argc != 8) {
        std::cerr << "usage: tournesol_ecrivain_essai BASE POSTE DEPART PROTECTION NUMERO MARQUE "
                     "NOMBRE\n";
        return 2;
    }
    const std::string adresse = argv[1];
    const int protection = std::stoi(argv[4]);
    const int numero = std::stoi(argv[5]);
    const int marque = std::stoi(argv[6]);
    const int nombre = std::stoi(argv[7]);
    InscrireReglagesRelais(protection, essai::EcrireListeEssai, essai::LireListeEssai);
    BaseEtudesSql base(adresse, 30000, false);
    DialogueScripte d;
    for (int i = 0; i < nombre; ++i) {
        Etude e;
        e.NomPoste = argv[2];
        e.NomDepart = argv[3];
        e.id_protection = e.ProtectionChoisie = protection;
        e.NomProtection = "relais " + std::to_string(protection);
        e.id_numero = static_cast<Entier16>(numero);
        base.Ouvrir(e, d);
        const int valeur = marque * 10000 + i;
        e.Ligne_Up = valeur;
        e.Ligne_Ip = marque;
        e.X1reg_HT = valeur;
        e.X2reg_HT = valeur + 0.5;
        e.Rreg_HT = static_cast<Reel32>(marque);
        e.T1 = static_cast<Entier16>(i);
        e.Sauvegarde = true;
        if (!base.Sauver(e, d)) {
            std::cerr << "save " << i << " failed: " << base.DernierEchec().raison << "\n";
            return 1;
        }
    }
    return 0;
}
