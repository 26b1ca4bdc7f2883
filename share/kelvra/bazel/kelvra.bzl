"""kelvra_image: an image from a load module and its sources, by kelvra-image build."""

def _inputs_folder(ctx):
    """The folder for the links of an image: another one for other sources, since the links of earlier builds stay, and
    without a sandbox the program sees them."""
    vpdinfo = ctx.file.vpdinfo
    declared = "with/" + vpdinfo.short_path.replace("../", "") if vpdinfo else "alone"
    return "%s.inputs/%s/%s" % (ctx.label.name, ctx.file.source.basename, declared)

def _link(ctx, file, name):
    link = ctx.actions.declare_file(_inputs_folder(ctx) + "/" + name)
    ctx.actions.symlink(output = link, target_file = file)
    return link

def _vpdinfo_names(source, vpdinfo):
    """The names that VPDINFONM may have for it, from the RUVPD source's folder: its base name and its path."""
    names = [vpdinfo.basename]
    folder = source.short_path[:-len(source.basename)]
    if vpdinfo.short_path.startswith(folder):
        path = vpdinfo.short_path[len(folder):]
        if path != vpdinfo.basename and not path.startswith("../"):
            names.append(path)
    return names

def _kelvra_image_impl(ctx):
    # The sources stand in a folder of their own, with no VPDINFO source but the declared one. So the program finds that
    # by the name that the RUVPD source gives, from whatever folder or rule it comes, or finds none.
    source = _link(ctx, ctx.file.source, ctx.file.source.basename)
    inputs = [ctx.file.lid, source]
    if ctx.file.vpdinfo:
        if source.extension.lower() in ["vpdinfo", "sfginfo"]:
            fail("%s is read alone, without %s" % (source.basename, ctx.file.vpdinfo.basename))
        names = _vpdinfo_names(ctx.file.source, ctx.file.vpdinfo)
        inputs += [_link(ctx, ctx.file.vpdinfo, name) for name in names]

    image = ctx.outputs.out
    arguments = ctx.actions.args()
    arguments.add("build")
    arguments.add(ctx.file.lid, format = "--lid=%s")
    arguments.add(source, format = "--source=%s")
    arguments.add(image, format = "--output=%s")
    arguments.add("--utc")
    arguments.add(ctx.attr.timestamp, format = "--timestamp=%s")
    if ctx.attr.lint:
        arguments.add("--lint")
    ctx.actions.run(
        executable = ctx.executable._program,
        arguments = [arguments],
        inputs = inputs,
        outputs = [image],
        env = {},
        use_default_shell_env = False,
        mnemonic = "KelvraImage",
        progress_message = "Making image " + image.short_path,
    )
    return [DefaultInfo(files = depset([image]), runfiles = ctx.runfiles(files = [image]))]

_kelvra_image = rule(
    implementation = _kelvra_image_impl,
    attrs = {
        "lid": attr.label(mandatory = True, allow_single_file = True),
        "source": attr.label(mandatory = True, allow_single_file = True),
        "vpdinfo": attr.label(allow_single_file = [".vpdinfo"]),
        "out": attr.output(mandatory = True),
        "timestamp": attr.int(),
        "lint": attr.bool(),
        "_program": attr.label(
            default = ":kelvra-image",
            allow_single_file = True,
            cfg = "exec",
            executable = True,
        ),
    },
)

def kelvra_image(name, lid, source, vpdinfo = None, out = None, timestamp = 0, lint = False, **kwargs):
    """Makes an image. What does not stand here is not read: neither another file nor the time, zone or environment.

    Args:
      name: the target's name.
      lid: the LID file.
      source: the RUVPD source; its base name is part of the image.
      vpdinfo: the VPDINFO source that the RUVPD source names, from any package or rule; one of another name is not
        taken. Not for a source that is read alone (.vpdinfo, .sfginfo).
      out: the image's name; else name with .ruhx.
      timestamp: the build time in seconds since 1970, for a LID without a header. A LID's own header gives its own.
      lint: lint first; errors stop the build, the rest is told.
      **kwargs: what all rules take, such as visibility.
    """
    _kelvra_image(
        name = name,
        lid = lid,
        source = source,
        vpdinfo = vpdinfo,
        out = out or name + ".ruhx",
        timestamp = timestamp,
        lint = lint,
        **kwargs
    )
