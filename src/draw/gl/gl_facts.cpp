// Facts of the OpenGL driver.
#include "draw/gl/gl_facts.h"

#include <GL/gl.h>
#include <GL/glext.h>
#include <stdio.h>

#include "core/program/logs.h"
#include "core/records/ren.h"
#include "draw/gl/ogl.h"

static int found_clamp_SGI, found_clamp_ARB, found_mul_tex, found_env_add, found_dis_fog, found_comp_ARB,
    found_comp_S3, found_comb_arb, found_filter_iso;
static int opengl_1_2, opengl_1_3;

// Any one of the texts sets the fact.
static const struct {
    int* found;
    const char* text;
} extension_rows[] = {
    {&found_clamp_SGI, "GL_SGI_texture_edge_clamp"},
    {&found_clamp_SGI, "GL_SGIS_texture_edge_clamp"},
    {&found_clamp_ARB, "GL_ARB_texture_edge_clamp"},
    {&found_clamp_ARB, "GL_EXT_texture_edge_clamp"},
    {&found_mul_tex, "GL_ARB_multitexture"},
    {&found_env_add, "GL_ARB_texture_env_add"},
    {&found_env_add, "GL_EXT_texture_env_add"},
    {&found_dis_fog, "GL_NV_fog_distance"},
    {&found_comp_ARB, "GL_ARB_texture_compression"},
    {&found_comp_S3, "GL_EXT_texture_compression_s3tc"},
    {&found_comb_arb, "GL_ARB_texture_env_combine"},
    {&found_comb_arb, "GL_EXT_texture_env_combine"},
    {&found_filter_iso, "GL_EXT_texture_filter_anisotropic"},
    {&found_filter_iso, "GL_ARB_texture_filter_anisotropic"},
};

static bool is_at_least(const std::string& version, int major, int minor) {
    int has_major = 0, has_minor = 0;
    if (sscanf(version.c_str(), "%d.%d", &has_major, &has_minor) != 2) return false;
    return has_major > major || (has_major == major && has_minor >= minor);
}

void gl_facts_from(const std::string& version, const std::string& extensions) {
    opengl_1_2 = is_at_least(version, 1, 2);
    opengl_1_3 = is_at_least(version, 1, 3);
    for (const auto& row : extension_rows) *row.found = 0;
    for (const auto& row : extension_rows)
        if (extensions.find(row.text) != std::string::npos) *row.found = 1;
    tex_clamp_avail = opengl_1_2 || found_clamp_SGI || found_clamp_ARB;
    add_env_avail = found_mul_tex && found_env_add;
    dis_fog_avail = found_dis_fog;
    tex_comp_avail = found_comp_ARB || found_comp_S3;
    combine_avail = found_comb_arb || opengl_1_3;
}

static std::string gl_text(GLenum name) {
    const GLubyte* text = glGetString(name);
    return text ? reinterpret_cast<const char*>(text) : "";
}

// The processor draws. Mesa's filter goes over every texel under a pixel there, which for ground that runs to
// the horizon takes seconds to minutes a frame, at any ratio above 1.
static bool is_software(const std::string& renderer) {
    for (const char* name : {"llvmpipe", "softpipe", "Software Rasterizer"})
        if (renderer.find(name) != std::string::npos) return true;
    return false;
}

static void read_limits() {
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &maxtexdim);
    ren.num_tex_units = 1;
    if (found_mul_tex || opengl_1_3) glGetIntegerv(GL_MAX_TEXTURE_UNITS, &ren.num_tex_units);
    ren.max_iso = 1;
    if (found_filter_iso && !is_software(gl_renderer))
        glGetIntegerv(GL_MAX_TEXTURE_MAX_ANISOTROPY_EXT, &ren.max_iso);
}

void read_gl_facts() {
    gl_renderer = gl_text(GL_RENDERER);
    const std::string vendor = gl_text(GL_VENDOR), renderer = gl_renderer, version = gl_text(GL_VERSION),
                      extensions = gl_text(GL_EXTENSIONS);
    gl_facts_from(version, extensions);
    read_limits();
    GL_error_check("read_gl_facts");

    xer << "OpenGL Situation :\n";
    xer << "vendor: " << vendor << '\n';
    xer << "renderer: " << renderer << '\n';
    xer << "version: " << version << '\n';
    xer << "extensions: " << extensions << '\n';
    const struct {
        const char* name;
        int value;
    } lines[] = {
        {"opengl_1_2", opengl_1_2},
        {"opengl_1_3", opengl_1_3},
        {"found_clamp_SGI", found_clamp_SGI},
        {"found_clamp_ARB", found_clamp_ARB},
        {"found_mul_tex", found_mul_tex},
        {"found_env_add", found_env_add},
        {"found_dis_fog", found_dis_fog},
        {"found_comp_ARB", found_comp_ARB},
        {"found_comp_S3", found_comp_S3},
        {"found_comb_arb", found_comb_arb},
        {"tex_clamp_avail", tex_clamp_avail},
        {"add_env_avail", add_env_avail},
        {"dis_fog_avail", dis_fog_avail},
        {"tex_comp_avail", tex_comp_avail},
        {"combine_avail", combine_avail},
        {"num_tex_units", ren.num_tex_units},
        {"max_iso", ren.max_iso},
        {"maxtexdim", maxtexdim},
    };
    for (const auto& line : lines) xer << line.name << ": " << line.value << '\n';
    xer.flush();
}
