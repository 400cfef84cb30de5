"""The site's pages that are notebooks, Markdown of Jupytext, run while it is built. Hooks of MkDocs."""
from functools import cache
from pathlib import Path

from mkdocs.structure.files import File

_ROOT = Path(__file__).parent.parent
_HOW = {"KernelManager": {"transport": "ipc"},
        "NotebookClient": {"extra_arguments": ["--InlineBackend.figure_formats=['svg']"]}}


def on_files(files, config):
    """Each notebook with its outputs beside its page, as a file for Jupyter."""
    import nbformat
    for page in _pages(files):
        body, pictures, notebook = _run(page.abs_src_path)
        folder = Path(page.dest_uri).parent
        for name, picture in pictures.items():
            files.append(File.generated(config, str(folder / name), content=picture))
        files.append(File.generated(config, str(folder / f"{page.name}.ipynb"),
                                    content=nbformat.writes(notebook)))


def on_page_markdown(markdown, page, **_):
    if "jupyter" not in page.meta:
        return markdown
    return f"{_run(page.file.abs_src_path)[0]}\n\n[This page as a notebook]({page.file.name}.ipynb)\n"


def _pages(files):
    return [file for file in files.documentation_pages()
            if file.content_string.startswith("---\njupyter:")]


@cache
def _run(path):
    """The page with what its cells gave, pictures by their names, and the notebook."""
    import jupytext
    from nbclient import NotebookClient
    from nbconvert import MarkdownExporter
    from traitlets.config import Config
    notebook = jupytext.read(path)
    NotebookClient(notebook, config=Config(_HOW), resources={"metadata": {"path": _ROOT}}).execute()
    body, made = MarkdownExporter().from_notebook_node(notebook, {"unique_key": Path(path).stem})
    return body, made["outputs"], notebook
