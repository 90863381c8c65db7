// A study from a study file put into the base as a save from the working window would put it:
// the keys of its line and relay found (a new line gets its row), then the whole save.
#pragma once

namespace tournesol {

struct Etude;
class Dialogue;
class BaseEtudesSql;

bool ImporterEtude(BaseEtudesSql& base, Etude& e, Dialogue& d);

} // namespace tournesol
