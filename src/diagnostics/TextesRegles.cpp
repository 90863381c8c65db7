// The rule texts that the diagnostics hold themselves, as the system writes them (faults
// included): the rules of 7SA511, REL 100 and REZ1, report and window, and the window texts of
// RXAP, S 321-5 and RAZOA, whose relays hold only their report texts.
#include "diagnostics/Diagnostics.h"

namespace tournesol {

const std::vector<TexteRegle>& TextesReglesDuGuide() {
    static const std::vector<TexteRegle> textes = {
        // 7SA511: report and window texts.
        {.Numero = 1,
         .Rapport = {"The third zone is lower than 1.2 times the second zone, i.e. "},
         .Fenetre = "The third zone is lower than 1.2 times the second zone, i. e.:"},
        {.Numero = 2,
         .Rapport = {"The forward pick up risks to see the fault beyond the transformers of the "
                     "remote substation",
                     "It might not overcome "},
         .Fenetre = "The downstream pick up may see the faults beyond the transformers of the "
                    "remote substation. It must not overcome:"},
        {.Numero = 3,
         .Rapport = {"The external out of step risks to see the faults beyond the transformers of "
                     "the remote substation",
                     "Z2 might not overcome "},
         .Fenetre = "The external out of step may see the faults beyond the transformers of the "
                    "remote substation. It must not overcomer:"},
        {.Numero = 4,
         .Rapport = {"The backward pick up risks to see the fault beyond the transformer of the "
                     "close substation ",
                     "It might not overcome "},
         .Fenetre = "The upstream pick up may see the faults beyond the transformers of the close "
                    "substation. It must not overcome:"},
        {.Numero = 5,
         .Rapport = {"The external out of step risks to see the faults beyond the transformers of "
                     "the close substation,",
                     "It might not overcome "},
         .Fenetre = "the external out of step may see the fault beyond  the tranformers of the "
                    "close substation. It must not overcome:"},
        {.Numero = 6,
         .Rapport = {"the first zone of the relay located at the remote end risks to overcome",
                     "the backward zone of the relay,", "That last zone must be greater than "},
         .Fenetre = "The first zone of the remote relay may overcome the upstream zone of the "
                    "close relay. that last one must be at least equal to:"},
        // REL 100: report and window texts.
        {.Numero = 57,
         .Rapport = {"The third zone is lower than 1.2 times the second zone, i.e. "},
         .Fenetre = "The third zone is lower than 1.2 times the second zone, i. e.:"},
        {.Numero = 58,
         .Rapport = {"The forward pick up risks to see the faults beyond the transformers of the "
                     "remote end. ",
                     "Zf might not overcome "},
         .Fenetre = "The downstream pick up may see the faults beyond the transformers of the "
                    "remote ubstation. It must not overcome:"},
        {.Numero = 59,
         .Rapport = {"The external out of step risks to see the faults beyond the transformers of "
                     "the remote substation",
                     "It might not overcome "},
         .Fenetre = "The external out of step may see the faults beyond the tranformers of the "
                    "remote substation. It must not overcome:"},
        {.Numero = 60,
         .Rapport = {"The backward pick up risks to see the faults beyond the transformers of the "
                     "close substation. ",
                     "It must not overcome "},
         .Fenetre = "The upstream pick up may see the faults beyond the transformers of the close "
                    "substation. It must not overcome:"},
        {.Numero = 61,
         .Rapport = {"The external out of step risks to see the faults beyond the transformers of "
                     "the close substation ",
                     "It might not overcome "},
         .Fenetre = "The external out of step may see the faults beyond the transformers of the  "
                    "close substation. It must not overcome:"},
        {.Numero = 62,
         .Rapport = {"the first zone of the relay located at the remote end risks to overcome the "
                     "backward zone of the relay",
                     "That last one must be greater than "},
         .Fenetre = "the first zone of the remote relay may overcome the upstream zone of the "
                    "close relay. That last one must be at least equal to:"},
        // REZ1: report and window texts.
        {.Numero = 64,
         .Rapport = {"The third zone is lower than 1.2 times the second zone, i.e. "},
         .Fenetre = "The third zone is lower than 1.2 times the second zone, i. e.:"},
        {.Numero = 65,
         .Rapport =
             {"The third zone risks to see the faults beyond the transformers of the remote end.",
              "It must not overcome"},
         .Fenetre = "The third zone may see the faults beyond the transformers of the remote "
                    "substation. It must not overcome:"},
        {.Numero = 66,
         .Rapport = {"The external out of step risks to see the faults beyond the transformers of "
                     "the remote substation. ",
                     "It might not overcome:"},
         .Fenetre = "The external out of step may see the faults beyond the transformers of the "
                    "remote substation. It must not overcome:"},
        {.Numero = 67,
         .Rapport = {"The third zone risks to be greater than the internal forward out of step.",
                     "It must not overcome:"},
         .Fenetre = "The third zone may overcome the internal downstream out of step.It must not "
                    "overcome:"},
        {.Numero = 68,
         .Rapport = {"The backward pick up risks to see the faults beyond the transformers of the "
                     "close substation.",
                     "It must not overcome:"},
         .Fenetre = "The upstream pick up may see the faults beyond the transformer of the close "
                    "substation. It must not overcome:"},
        {.Numero = 69,
         .Rapport = {"The external out of step risks to see the faults beyond the transformers of "
                     "the close substation.",
                     "It might not overcome:"},
         .Fenetre = "The external out of step may see the faults beyond the transformers of the "
                    "close substation. It must not overcome:"},
        {.Numero = 70,
         .Rapport = {"the first zone of the relay located at the remote end risks to overcome the "
                     "backward zone of the relay.",
                     "That last one must be greater than "},
         .Fenetre = "the first zone of the remote relay may overcome the upstream zone of the "
                    "close relay. That last one must be at least equal to:"},
        // RXAP: window texts; the relay registers the report texts.
        {.Numero = 71,
         .Fenetre = "The downstream pick up on phase to phase fault is lower than 1.2 times the "
                    "second zone, i. e.:"},
        {.Numero = 72,
         .Fenetre = "The downstream pick up on three phase fault may see the faults beyond the "
                    "transformers of the remote substation. It must not overcome:"},
        {.Numero = 73,
         .Fenetre = "The downstream out of step zone on three phase fault may see the faults "
                    "beyond the tranformers of the remote substation. It must not overcome:"},
        {.Numero = 74,
         .Fenetre = "The upstream pick up on three phae fault may see the faults beyond the "
                    "transformers of the close substation. It must not overcome:"},
        {.Numero = 75,
         .Fenetre = "The upstream out of step zone on three phase faults may see the faults beyond "
                    "the transformers of the close substation. It must not overcome:"},
        {.Numero = 76,
         .Fenetre = "the first zone of the remote relay may overcome the upstream zone of the "
                    "close relay. That last one must be at least equal to:"},
        // S 321-5: window texts; the relay registers the report texts.
        {.Numero = 79,
         .Fenetre = "The downstream pick up on phase to earth fault is lower than 1.2 times the "
                    "second zone on phase to earth fault, i. e.:"},
        {.Numero = 80,
         .Fenetre = "The downstream pick up on phase to phase fault is lower than 1.2 times the "
                    "second zone on phase to phase fault, i. e.:"},
        {.Numero = 81,
         .Fenetre = "The downstream pick up on phase to earth fault may see the faults beyond the "
                    "transformers of the remote substation. It must not overcome:"},
        {.Numero = 82,
         .Fenetre = "The downstream pick up on phase to phase fault may see the fault beyond the "
                    "tranformers of the remote substation. It must not overcome:"},
        {.Numero = 83,
         .Fenetre = "The downstream out of step zone may see the faults beyond the transformers of "
                    "the remote substation. It must not overcome:"},
        {.Numero = 84,
         .Fenetre = "The upstream pick up on phase to earth fault may see the faults beyond the "
                    "transformers of the remote substation. It must not overcome:"},
        {.Numero = 85,
         .Fenetre = "The upstream pick up on phase to phase fault may see the fault beyond the "
                    "tranformers of the remote substation. It must not overcome:"},
        {.Numero = 86,
         .Fenetre = "The upstream out of step zone may see the faults beyond the transformers of "
                    "the remote substation. It must not overcome:"},
        {.Numero = 87,
         .Fenetre = "the first zone of the remote relay may overcome the upstream zone of the "
                    "close relay. That last one must be at least equal to:"},
        // RAZOA: window texts; the relay registers the report texts.
        {.Numero = 50,
         .Fenetre = "The downstream reach on phase to phase fault is lower than 1.2 times the "
                    "second zone. i. e.:"},
        {.Numero = 51,
         .Fenetre = "The downstream pick up on phase to earth fault may see the faults beyond the "
                    "transformers of the remote substation. The parameter Zf must not overcome:"},
        {.Numero = 52,
         .Fenetre =
             "The downstream out of tep one on three phase fault may ee the faults beyond the "
             "transformers of the remote substation. The parameter Z2 must not overcome:"},
        {.Numero = 53,
         .Fenetre = "As the faults on the limit of third zone reach can be seen, the out of step "
                    "factor must be at least equal to:"},
        {.Numero = 54,
         .Fenetre = "The uptream pick up on phase to earth fault may see the faults beyond the "
                    "transformers of the close substation. It must not overcome:"},
        {.Numero = 55,
         .Fenetre =
             "The upstream out of step zone on three phase fault may see the faults beyond the "
             "transformers of the close substation. The parameter Z2 must not overcome:"},
        {.Numero = 56,
         .Fenetre = "the first zone of the remote relay may overcome the upstream zone of the "
                    "close relay. That last one must be at least equal to:"},
    };
    return textes;
}

} // namespace tournesol
