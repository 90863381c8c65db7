#include "core/Dialogue.h"

#include "core/Etude.h"
#include "core/Panneau.h"

namespace tournesol {

void AfficherMessage(Etude& e, Dialogue& d) {
    d.Message(e.sTitre, e.sMessage, e.IconeMessage);
}

void PoserQuestion(Etude& e, Dialogue& d) {
    e.ReponseQuestion =
        static_cast<int16_t>(d.Question(e.sTitre, e.sMessage, e.IconeMessage, e.BoutonsQuestion));
}

void DialogueSansFenetre::Message(const std::string& titre, const std::string& texte, int icone) {
    messages_.push_back({titre, texte, icone, false, {}, 0});
}

int DialogueSansFenetre::Question(const std::string& titre, const std::string& texte, int icone,
                                  const Boutons& boutons) {
    MessageAffiche q{titre, texte, icone, true, boutons, 0};
    q.Reponse = Repondre(q);
    messages_.push_back(q);
    return q.Reponse;
}

void DialogueSansFenetre::MontrerPanneau(Panneau& panneau) {
    panneaux_.push_back(panneau.Nom());
    Piloter(panneau);
}

bool DialogueSansFenetre::Sablier(bool actif) {
    const bool avant = sablier_;
    sablier_ = actif;
    return avant;
}

int DialogueSansFenetre::Repondre(const MessageAffiche&) {
    return 0;
}

void DialogueSansFenetre::Piloter(Panneau& panneau) {
    panneau.Valider();
}

void DialogueScripte::AjouterReponses(std::initializer_list<int> reponses) {
    reponses_.insert(reponses_.end(), reponses);
}

void DialogueScripte::QuandPanneau(const std::string& nom, std::function<void(Panneau&)> action) {
    actions_[nom] = std::move(action);
}

int DialogueScripte::Repondre(const MessageAffiche& question) {
    if (reponses_.empty()) return DialogueSansFenetre::Repondre(question);
    const int r = reponses_.front();
    reponses_.pop_front();
    return r;
}

void DialogueScripte::Piloter(Panneau& panneau) {
    const auto it = actions_.find(panneau.Nom());
    if (it == actions_.end())
        DialogueSansFenetre::Piloter(panneau);
    else
        it->second(panneau);
}

} // namespace tournesol
