#include "database/Adresse.h"

#include <QUrl>

namespace tournesol {

namespace {
bool Commence(const std::string& texte, const char* debut) {
    return texte.rfind(debut, 0) == 0;
}
} // namespace

bool EstAdresseServeur(const std::string& rep_appli) {
    return Commence(rep_appli, "postgresql://") || Commence(rep_appli, "postgres://");
}

std::optional<AdresseServeur> LireAdresseServeur(const std::string& rep_appli) {
    if (!EstAdresseServeur(rep_appli)) return std::nullopt;
    std::string texte = rep_appli;
    while (!texte.empty() && (texte.back() == '/' || texte.back() == '\\'))
        texte.pop_back();
    const QUrl url(QString::fromStdString(texte), QUrl::StrictMode);
    if (!url.isValid()) return std::nullopt;
    AdresseServeur a;
    a.utilisateur = url.userName().toStdString();
    a.hote = url.host().toStdString();
    const int port = url.port(5432);
    if (port < 1 || port > 65535) return std::nullopt;
    a.port = port;
    QString base = url.path();
    if (base.startsWith('/')) base.remove(0, 1);
    if (base.isEmpty() || base.contains('/') || url.hasQuery() || url.hasFragment())
        return std::nullopt;
    a.base = base.toStdString();
    return a;
}

std::string AdresseServeur::Texte() const {
    std::string t = "postgresql://";
    if (!utilisateur.empty()) t += utilisateur + "@";
    t += hote;
    if (!hote.empty() || port != 5432) t += ":" + std::to_string(port);
    return t + "/" + base;
}

} // namespace tournesol
