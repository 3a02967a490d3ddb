"""What the checks of the reference share: a page that is written or compared, and their end."""
import argparse
import pathlib
import sys


def arguments(description):
    parser = argparse.ArgumentParser(description=description)
    parser.add_argument("--check", action="store_true", help="only compare with the page")
    parser.add_argument("--root", type=pathlib.Path, help="the tree, where it is not this one",
                        default=pathlib.Path(__file__).resolve().parent.parent)
    return parser


def write_or_compare(options, page, text, script, complaints):
    """Writes the page, unless it is only to be compared or something is wrong already."""
    target = options.root / page
    if options.check:
        if not target.exists() or target.read_text() != text:
            complaints.append(f"{page} is not what scripts/{script} writes")
    elif not complaints:
        target.write_text(text)


def conclude(what, complaints, summary):
    """Prints the complaints or the summary; the exit status."""
    for complaint in complaints:
        print(f"{what}: {complaint}", file=sys.stderr)
    if not complaints:
        print(summary)
    return 1 if complaints else 0
