"""What the documentation's site takes from the package: docstrings and tables. Hooks of MkDocs."""
import importlib
import inspect
import re


def on_page_markdown(markdown, **_):
    """Docstrings where ":::" names something, and no links to what is not on the site."""
    markdown = markdown.replace("@properties", _properties()) if "@properties" in markdown else markdown
    markdown = re.sub(r"\[([^\]]*)\]\(\.\./(?!\w+\.md)[^)]*\)", r"\1", markdown)
    return re.sub(r"^::: (.*)$", lambda found: _described(found[1]), markdown, flags=re.MULTILINE)


def _properties():
    from vek._tables import PROPERTIES
    rows = [f"| `{p.identifier}` | {p.name} | {p.unit} | {p.si_unit} |" for p in PROPERTIES]
    return "\n".join(["| name | property | unit | SI |", "|---|---|---|---|", *rows])


def _described(path):
    thing, signature = _found(path), ""
    try:
        signature = str(inspect.signature(thing)) if not inspect.ismodule(thing) else ""
    except (TypeError, ValueError):
        pass
    signature = "" if inspect.isclass(thing) else signature
    return f"### `{path}{signature}`\n\n{_markdown(inspect.getdoc(thing))}\n"


def _found(path):
    """A module, or what is in one."""
    module, _, names = path, None, []
    while True:
        try:
            thing = importlib.import_module(module)
            break
        except ModuleNotFoundError:
            module, _, name = module.rpartition(".")
            names.insert(0, name)
    for name in names:
        thing = getattr(thing, name)
    return thing


def _markdown(text):
    """A docstring's paragraphs; examples fenced, and each described name on its own line."""
    return "\n\n".join(f"```pycon\n{paragraph}\n```" if paragraph.startswith(">>>") else _prose(paragraph)
                       for paragraph in text.split("\n\n"))


def _prose(paragraph):
    ending = r"(?<!`)\b_|_\b(?!`)|\"_\""  # would be taken for emphasis
    paragraph = re.sub(ending, lambda found: found[0].replace("_", r"\_"), paragraph)
    return re.sub(r"\n(?=[a-z_, ]+: |Returns|Raises|Range|Outside)", "  \n", paragraph)
