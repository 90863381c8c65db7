// What the engine asks of whoever shows it: messages, questions, modal panels, the hourglass.
// The engine never shows anything itself.
#pragma once

#include <array>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace tournesol {

struct Etude;
class Panneau;

using Boutons = std::array<std::string, 3>;

class Dialogue {
public:
    virtual ~Dialogue() = default;
    // frmMessage: icon 0 none, 1 computation error, 2 database access, 3 attention.
    virtual void Message(const std::string& titre, const std::string& texte, int icone) = 0;
    // frmQuery: the first button always, the others when their caption is not empty.
    // Returns the index of the button pressed.
    virtual int Question(const std::string& titre, const std::string& texte, int icone,
                         const Boutons& boutons) = 0;
    // Shows a panel modally; returns when the panel is closed.
    virtual void MontrerPanneau(Panneau& panneau) = 0;
    // Shows or hides the hourglass; returns whether it was shown before.
    virtual bool Sablier(bool actif) = 0;
    virtual void LaisserPasserEvenements() = 0;
    // The machine's beep.
    virtual void Bip() {}
};

// frmMessage driven by sTitre, sMessage and IconeMessage.
void AfficherMessage(Etude& e, Dialogue& d);
// frmQuery driven by sTitre, sMessage, IconeMessage and BoutonsQuestion; sets ReponseQuestion.
void PoserQuestion(Etude& e, Dialogue& d);

// One message or question as it was shown.
struct MessageAffiche {
    std::string sTitre;
    std::string sMessage;
    int IconeMessage = 0;
    bool Question = false;
    Boutons BoutonsQuestion;
    int Reponse = 0;
};

// The dialogue of the command line: every panel is confirmed at once without change, every
// question gets its first button, every message is recorded in order.
class DialogueSansFenetre : public Dialogue {
public:
    void Message(const std::string& titre, const std::string& texte, int icone) override;
    int Question(const std::string& titre, const std::string& texte, int icone,
                 const Boutons& boutons) override;
    void MontrerPanneau(Panneau& panneau) override;
    bool Sablier(bool actif) override;
    void LaisserPasserEvenements() override {}

    const std::vector<MessageAffiche>& Messages() const { return messages_; }
    const std::vector<std::string>& PanneauxMontres() const { return panneaux_; }
    bool SablierActif() const { return sablier_; }

protected:
    virtual int Repondre(const MessageAffiche& question);
    virtual void Piloter(Panneau& panneau);

private:
    std::vector<MessageAffiche> messages_;
    std::vector<std::string> panneaux_;
    bool sablier_ = false;
};

// The dialogue of tests: answers and panel actions are given in advance; what is not
// scripted is answered as by the command line.
class DialogueScripte : public DialogueSansFenetre {
public:
    // The answers to the next questions, in order.
    void AjouterReponses(std::initializer_list<int> reponses);
    // What the user does in a panel of that name each time it is shown (instead of OK).
    void QuandPanneau(const std::string& nom, std::function<void(Panneau&)> action);
    // Number of scripted answers not used yet.
    std::size_t ReponsesRestantes() const { return reponses_.size(); }

protected:
    int Repondre(const MessageAffiche& question) override;
    void Piloter(Panneau& panneau) override;

private:
    std::deque<int> reponses_;
    std::map<std::string, std::function<void(Panneau&)>> actions_;
};

} // namespace tournesol
