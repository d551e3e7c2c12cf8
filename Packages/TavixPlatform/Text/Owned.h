// Objects of Fontconfig and Pango that are let go of by their own functions. Inside the library only.
#pragma once

#include <fontconfig/fontconfig.h>
#include <pango/pango.h>

#include <memory>

namespace tavix::text {

struct Released {
    void operator()(FcConfig* config) const { FcConfigDestroy(config); }
    void operator()(FcFontSet* set) const { FcFontSetDestroy(set); }
    void operator()(FcCharSet* set) const { FcCharSetDestroy(set); }
    void operator()(PangoAttrList* list) const { pango_attr_list_unref(list); }
    void operator()(PangoFontDescription* font) const { pango_font_description_free(font); }
    void operator()(PangoGlyphString* glyphs) const { pango_glyph_string_free(glyphs); }
    void operator()(PangoItem* item) const { pango_item_free(item); }
    template <class GObjectType> void operator()(GObjectType* object) const { g_object_unref(object); }
};
template <class T> using Owned = std::unique_ptr<T, Released>;

}   // namespace tavix::text
