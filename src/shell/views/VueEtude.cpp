#include "shell/views/VueEtude.h"

#include "shell/Etude.h"
#include "shell/FichierEtude.h"

#include <QHeaderView>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tournesol {

VueEtude::VueEtude(const Etude& e, QWidget* parent) : QMainWindow(parent) {
    setObjectName(QStringLiteral("frmDémarre"));
    setWindowTitle(QStringLiteral("TOURNESOL [%1]").arg(QString::fromStdString(e.NomPoste)));
    auto* centre = new QWidget(this);
    auto* pile = new QVBoxLayout(centre);
    auto* titre =
        new QLabel(QStringLiteral("%1 - %2    %3 n° %4")
                       .arg(QString::fromStdString(e.NomPoste), QString::fromStdString(e.NomDepart),
                            QString::fromStdString(e.NomProtection))
                       .arg(e.id_numero),
                   centre);
    titre->setObjectName(QStringLiteral("lblLigne"));
    pile->addWidget(titre);

    const QJsonObject etat =
        QJsonDocument::fromJson(QByteArray::fromStdString(EcrireEtude(e))).object();
    auto* table = new QTableWidget(static_cast<int>(etat.size()), 2, centre);
    table->setObjectName(QStringLiteral("tblEtude"));
    table->setHorizontalHeaderLabels({QStringLiteral("Name"), QStringLiteral("Value")});
    table->horizontalHeader()->setStretchLastSection(true);
    table->verticalHeader()->hide();
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    int ligne = 0;
    for (auto it = etat.begin(); it != etat.end(); ++it, ++ligne) {
        const QJsonValue v = it.value();
        const QString texte =
            v.isString() ? v.toString()
            : v.isArray()
                ? QString::fromUtf8(QJsonDocument(v.toArray()).toJson(QJsonDocument::Compact))
            : v.isObject()
                ? QString::fromUtf8(QJsonDocument(v.toObject()).toJson(QJsonDocument::Compact))
                : v.toVariant().toString();
        table->setItem(ligne, 0, new QTableWidgetItem(it.key()));
        table->setItem(ligne, 1, new QTableWidgetItem(texte));
    }
    table->resizeColumnToContents(0);
    pile->addWidget(table);
    setCentralWidget(centre);
    resize(720, 560);
}

} // namespace tournesol
