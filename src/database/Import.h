// A study from a study file put into the base as a save from the working window puts it: the
// keys the file may hold belong to no base, so they are forgotten and the save finds the line and
// the relay by their names, inside its own transaction.
#pragma once

namespace tournesol {

struct Etude;
class Dialogue;
class BaseEtudesSql;

bool ImporterEtude(BaseEtudesSql& base, Etude& e, Dialogue& d);

} // namespace tournesol
