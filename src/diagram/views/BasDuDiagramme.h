// Under a diagram, its coordinates and its status line ("coordonnées", "status"): two lines
// each, whatever they say, so that the window keeps its size when they change.
#pragma once

class QHBoxLayout;
class QWidget;

namespace tournesol {

QHBoxLayout* BasDuDiagramme(QWidget* parent);

} // namespace tournesol
