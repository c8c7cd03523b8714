// The render options whose environment holds skies; apart from the material examples, whose
// headers it does not need.
#include <memory>

#include "options/all_options.h"
#include "options/tal_opt_file.h"
#include "scene/sun_light.h"
#include "sky_examples.h"
#include "textures/sky_texture.h"

namespace MakeExamples {

using namespace TalvexCore;

bool writeSkyEnvironmentFile(const std::filesystem::path& path)
{
    auto horizon = std::make_shared<SunLight>(u"Horizon", u"{5C7E0B92-4A1D-4E6F-8B3C-9D2A7F1E0C64}");
    horizon->size_multiplier = 2;
    AllOptions options;
    options.use_bg = options.use_gi = options.use_reflect = 1;
    options.bg_tex = sky(defaultSun(), 3);
    options.bg_tex_mult = 1.2f;
    options.gi_tex = sky(horizon, 4);
    options.gi_tex_mult = 0.8f;
    options.reflect_tex = sky(horizon, 4);
    options.reflect_tex_mult = 1;
    return TalOptFile().save(options, path.u16string());
}

}  // namespace MakeExamples
