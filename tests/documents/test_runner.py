#!/usr/bin/python3
"""The tests that execute documents can fail: each kind of fault is made in a document, or
in a small tree, and has to be noticed.

    test_runner.py --build BUILD [--host OLT_HOST]
"""

import argparse
import pathlib
import subprocess
import sys
import tempfile
import unittest

HERE = pathlib.Path(__file__).resolve().parent
OPTIONS = []


def run(program, *arguments):
    result = subprocess.run([sys.executable, "-B", HERE / program, *arguments],
                            capture_output=True, text=True, check=False)
    if "Traceback" in result.stderr:
        raise RuntimeError(result.stderr)
    return result.returncode, result.stdout + result.stderr


class DocumentCase(unittest.TestCase):
    """A document of the test's own."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="olt_runner_")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.document = self.folder / "page.md"
        self.elsewhere = self.folder / "elsewhere.txt"
        self.elsewhere.write_text("make test => .ci/run\n")

    def play(self, text, *arguments):
        self.document.write_text(text)
        return run("run_document.py", *OPTIONS, "--elsewhere", self.elsewhere, *arguments,
                   self.document)

    def passes(self, text, *arguments):
        status, output = self.play(text, *arguments)
        self.assertEqual(status, 0, output)
        return output

    def fails(self, text, *wanted):
        status, output = self.play(text)
        self.assertEqual(status, 1, output)
        for part in wanted:
            self.assertIn(part, output)


class ShellCommands(DocumentCase):
    def test_right_output_passes(self):
        output = self.passes("Text.\n\n    $ printf 'one\\ntwo\\n'\n    one\n    two\n")
        self.assertIn("1 commands run", output)

    def test_wrong_output_is_noticed(self):
        self.fails("    $ echo one\n    two\n", "page.md:1", "two", "one")

    def test_output_that_is_not_shown_is_noticed(self):
        self.fails("    $ echo one\n", "prints")

    def test_missing_output_is_noticed(self):
        self.fails("```\n$ true\none\n```\n", "page.md:2")

    def test_lines_left_out_may_be_any(self):
        self.passes("    $ seq 9\n    1\n    ...\n    5\n    ...\n    9\n")
        self.passes("    $ seq 3\n    1\n    2\n    3\n    ...\n")

    def test_wrong_lines_around_those_left_out_are_noticed(self):
        self.fails("    $ seq 9\n    2\n    ...\n")
        self.fails("    $ seq 9\n    ...\n    5\n    7\n    ...\n")
        self.fails("    $ seq 9\n    ...\n    8\n")
        self.fails("    $ seq 3\n    1\n    ...\n    1\n    ...\n")

    def test_times_may_differ_and_nothing_beside_them(self):
        page = "    $ echo 'since 2026-01-02 03:04:05, for 6s, 0.7 ms each'\n    {}\n"
        self.passes(page.format("since 2027-11-12 13:14:15, for 16s, 12 ms each"))
        self.fails(page.format("since 2027-11-12 13:14:15, for 16s, 12 ms all"))

    def test_a_shell_goes_on_through_the_document(self):
        self.passes("    $ cd data\n    $ wanted=facts\n\nText.\n\n"
                    "    $ test -d $wanted && basename \"$PWD\"\n    data\n")

    def test_a_command_may_have_several_lines(self):
        self.passes("    $ echo one \\\n        two\n    one two\n"
                    "    $ cat <<END\n    three\n    END\n    three\n")

    def test_nothing_comes_back_into_the_tree(self):
        self.passes("    rm -r data docs\n    touch README.md\n")
        self.assertTrue((HERE.parents[1] / "data/catalogue.yaml").exists())

    def test_a_command_that_ends_the_shell_is_noticed(self):
        self.fails("    $ exit 0\n", "ended the shell")


class CommandsWithoutOutput(DocumentCase):
    def test_a_failing_one_is_noticed(self):
        self.fails("    test -e data/catalogue.yaml\n    test -e data/missing   # remark\n",
                   "data/missing", "ended with 1")

    def test_a_line_that_is_no_command_is_noticed(self):
        self.fails("    test -e data\n    some text\n", "line 2 begins with no program")

    def test_a_text_names_its_language(self):
        output = self.passes("```text\nsome text\n```\n\n```yaml\ntest: 1\n```\n")
        self.assertIn("0 commands run", output)
        self.fails("```\nsome text\n```\n", "line 2 begins with no program")

    def test_one_that_a_text_hides_is_noticed(self):
        self.fails("```text\ntest -e data \\\n  -o -e docs\ntest -e docs\n```\n", "hides")

    def test_a_listed_one_is_run_elsewhere(self):
        self.assertIn("1 commands are run elsewhere", self.passes("    make test   # all\n"))

    def test_one_that_is_not_listed_is_run(self):
        self.fails("    make no_such_target\n", "ended with 2")


class ConsoleLines(DocumentCase):
    TYPES = "    olt> show onu_common_type\n    common_sfu_type:       857\n"

    def test_right_answer_passes(self):
        output = self.passes(self.TYPES + "    common_hgu_type:       762\n")
        self.assertIn("1 lines typed", output)

    def test_wrong_answer_is_noticed(self):
        self.fails(self.TYPES + "    common_hgu_type:       763\n", "common_hgu_type:       762")

    def test_help_and_completion_come_without_enter(self):
        self.passes("    olt> show key_ability_code ?\n    ...\n      <cr>\n"
                    "    olt> show ability code GE<TAB><TAB>\n"
                    "      GE_PORTS     GE10_PORTS   GE2_5_PORTS\n" + self.TYPES + "    ...\n")

    def test_wrong_help_is_noticed(self):
        self.fails("    olt> show key_ability_code ?\n      nothing\n")

    def test_the_document_chooses_the_console(self):
        self.passes("    olt_host console\n\nText.\n\n    olt> show onu\n    No ONUs\n")

    def test_another_prompt_is_noticed(self):
        self.fails("    olt(read-only)> show onu\n    ...\n", "the prompt is olt>")

    def test_a_line_behind_the_end_is_noticed(self):
        self.fails("    olt> exit\n    olt> who\n    ...\n", "has ended already")

    def test_a_console_that_does_not_start_is_noticed(self):
        self.fails("    olt_host console missing.yaml\n", "cannot be read")

    def test_hidden_lines_are_typed(self):
        self.passes("<!-- test: type set onu_common_type sfu 9 -->\n\n"
                    "    olt> show onu_common_type | include sfu\n    common_sfu_type:         9\n")


class Files(DocumentCase):
    def test_a_shown_file_is_made(self):
        self.passes("`one.txt`:\n\n    one\n\nText.\n\n    $ cat one.txt\n    one\n")

    def test_a_file_that_a_command_made_is_compared(self):
        page = "    $ echo one > one.txt\n\n`one.txt`:\n\n    {}\n"
        self.passes(page.format("one"))
        self.fails(page.format("two"), "page.md:5")

    def test_a_file_of_another_document_is_taken(self):
        self.passes("<!-- test: files catalogue-format.md catalogue.yaml -->\n\n"
                    "    $ head -c 10 catalogue.yaml; echo\n    # yaml-lan\n")
        self.fails("<!-- test: files catalogue-format.md missing.yaml -->\n", "missing.yaml")


class Directives(DocumentCase):
    def test_an_unknown_one_is_noticed(self):
        self.fails("<!-- test: nonsense -->\n", "nonsense")

    def test_a_hidden_command_that_fails_is_noticed(self):
        self.fails("<!-- test: run false -->\n", "ended with 1")

    def test_what_needs_packages_is_run_with_them_only(self):
        page = ("    $ echo built\n    built\n\n<!-- test: installed -->\n\n"
                "    $ echo installed\n    installed\n")
        self.assertIn("1 commands run", self.passes(page))
        self.assertIn("1 commands run", self.passes(page, "--installed"))
        status, _ = self.play(page.replace("    installed\n", "    other\n"), "--installed")
        self.assertEqual(status, 1)


class Updating(DocumentCase):
    def test_real_output_takes_the_place_of_another(self):
        page = "    $ seq 2\n    1\n    3\n\nText.\n\n    olt> show onu 9 9\n\nEnd.\n"
        self.play(page, "--update")
        updated = self.document.read_text()
        self.assertEqual(updated.replace("    % No ONU at place 9", "    %", 1).partition("%")[0],
                         "    $ seq 2\n    1\n    2\n\nText.\n\n    olt> show onu 9 9\n    ")
        self.passes(updated)


class TreeCase(unittest.TestCase):
    """A small tree of the test's own."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="olt_runner_")
        self.addCleanup(folder.cleanup)
        self.tree = pathlib.Path(folder.name)
        (self.tree / "docs").mkdir()
        (self.tree / "gate.sh").write_text("make bench FILTER=one\nrun_elsewhere.py other.sh\n")
        self.elsewhere = self.tree / "elsewhere.txt"

    def page(self, text, name="docs/page.md"):
        (self.tree / name).write_text(text)

    def expect(self, result, status, *wanted):
        self.assertEqual(result[0], status, result[1])
        for part in wanted:
            self.assertIn(part, result[1])


class LinksOfDocuments(TreeCase):
    def test_live_ones_pass(self):
        self.page("# One `two`: three\n\n## Same\n\n## Same\n\n[a](page.md#one-two-three) "
                  "[b](#same-1)\n[c](../docs/) `docs/page.md` `docs/*.md` `docs/{page}.md`\n")
        self.expect(run("check_links.py", self.tree), 0, "6 links and paths in 1 documents")

    def test_dead_ones_are_noticed(self):
        self.page("# One\n\nText [a](missing.md),\n[b](#two), `docs/missing.md`,\n"
                  "![c](missing.svg), [d](page.md#three).\n\n[e]: missing.txt\n")
        self.expect(run("check_links.py", self.tree), 1,
                    "docs/page.md:3: there is no missing.md",
                    "docs/page.md:4: there is no heading #two",
                    "docs/page.md:4: there is no docs/missing.md",
                    "docs/page.md:5: there is no missing.svg",
                    "docs/page.md:5: there is no heading #three",
                    "docs/page.md:7: there is no missing.txt", "6 faults")

    def test_blocks_and_other_machines_are_passed_over(self):
        self.page("# One\n\n    [a](missing.md)\n    [b](missing.md)\n\n```\n# Two\n[c](missing.md)\n"
                  "```\n\n[d](https://localhost/missing)\n")
        self.expect(run("check_links.py", self.tree), 0, "0 links and paths")

    def test_where_the_tree_is_not_links_alone_count(self):
        self.page("# One\n\n`docs/missing.md` [a](page.md)\n")
        self.expect(run("check_links.py", self.tree, "--links-alone"), 0,
                    "1 links and paths in 1 documents")
        self.page("# One\n\n[a](missing.md)\n")
        self.expect(run("check_links.py", self.tree, "--links-alone"), 1,
                    "docs/page.md:3: there is no missing.md")

    def test_a_tree_without_documents_is_noticed(self):
        self.expect(run("check_links.py", self.tree), 1, "has no documents")

    def test_a_document_without_a_test_is_noticed(self):
        self.page("# One\n")
        self.page("# Two\n", "README.md")
        self.expect(run("check_links.py", self.tree, "--tested", "README.md"), 1,
                    "docs/page.md: no test executes this document")


class CommandsElsewhere(TreeCase):
    def check(self, entries, page):
        self.elsewhere.write_text(entries)
        self.page(page)
        return run("check_elsewhere.py", self.tree, self.elsewhere)

    def test_used_entries_pass(self):
        self.expect(self.check("make bench* => gate.sh (make bench)\n",
                               "    make bench OUT=x  # long\n"), 0)

    def test_an_entry_that_no_document_uses_is_noticed(self):
        self.expect(self.check("make bench => gate.sh\n", "    make other\n"), 1,
                    "no document has a command \"make bench\"")

    def test_a_missing_script_is_noticed(self):
        self.expect(self.check("make bench => other.sh\n", "    make bench\n"), 1, "not there")

    def test_a_script_that_does_not_run_it_is_noticed(self):
        self.expect(self.check("make tea => gate.sh\n", "    make tea\n"), 1,
                    "gate.sh does not run \"run_elsewhere.py gate.sh\"")
        self.expect(self.check("make tea => gate.sh (make coffee)\n", "    make tea\n"), 1,
                    "gate.sh does not run \"make coffee\"")

    def test_a_command_in_the_text_that_nothing_runs_is_noticed(self):
        self.expect(self.check("", "Say `make\ntea` and be\npatient.\n"), 1,
                    'docs/page.md:1: nothing runs "make tea"')

    def test_a_command_in_the_text_that_is_run_passes(self):
        self.expect(self.check("make bench => gate.sh (make bench)\n", "Say `make bench`.\n"), 0)
        self.expect(self.check("", "Say `make tea`:\n\n    $ make tea  # hot\n"), 0)

    def test_names_and_placeholders_in_the_text_are_no_commands(self):
        self.expect(self.check("", "`make`, `scripts/gate.sh`, `make tea CUP`, `ctest -R ...`\n"), 0)

    def test_commands_for_packages_that_no_gate_installs_are_noticed(self):
        page = "    make tea\n\n<!-- test: installed -->\n\n    $ tea\n"
        entries = "make tea => gate.sh (make bench)\n"
        self.expect(self.check(entries, page), 1, "commands for installed packages")
        (self.tree / "scripts").mkdir()
        (self.tree / "scripts/check_packages.sh").write_text("run_document.py --installed x.md\n")
        self.expect(self.check(entries, page), 0)

    def run_all(self, page):
        self.elsewhere.write_text("echo * => gate.sh\nls * => other.sh\n")
        self.page(page)
        return run("run_elsewhere.py", "gate.sh", "--tree", self.tree, "--list", self.elsewhere)

    def test_they_are_run_once_and_compared(self):
        self.expect(self.run_all("    echo one  # word\n\nText.\n\n    $ echo one\n    one\n\n"
                                 "Text.\n\n    ls missing\n"), 0, "1 commands run, 0 faults")

    def test_another_output_is_noticed(self):
        self.expect(self.run_all("    $ echo one\n    two\n"), 1, "page.md:1", "1 faults")

    def test_one_that_fails_is_noticed(self):
        self.expect(self.run_all("    echo one && false\n"), 1, "ended with 1")

    def test_none_at_all_is_noticed(self):
        self.expect(self.run_all("Text.\n"), 1, "no document has a command")


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", required=True)
    parser.add_argument("--host")
    known, rest = parser.parse_known_args()
    OPTIONS = ["--build", known.build] + (["--host", known.host] if known.host else [])
    unittest.main(argv=[sys.argv[0], *rest])
