"""The checks of the reference, on a tree that one thing is changed in.

    reference_test.py OLT_HOST

Each test changes a source, a meaning or a page the way a developer may, forgetting the other
side, and expects the message that says so.
"""

import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

TREE = pathlib.Path(__file__).resolve().parent.parent.parent
HOST = sys.argv.pop(1) if len(sys.argv) > 1 else None
ATTRIBUTES = "src/onu_ability_common/onu_ability_common_table/onu_ability_attr_info.cpp"
SERIALISATION = "src/onu_ability_common/onu_ability_common_table/onu_ability_profile_serialisation.cpp"
VALUES = "src/onu_ability_common/onu_ability_common_global/ability_values.h"


class TreeCopy(unittest.TestCase):
    COPIED = ()

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        for name in self.COPIED:
            source, target = TREE / name, self.root / name
            target.parent.mkdir(parents=True, exist_ok=True)
            if source.is_dir():
                shutil.copytree(source, target)
            else:
                shutil.copy(source, target)

    def change(self, name, old, new):
        path = self.root / name
        text = path.read_text()
        self.assertIn(old, text)
        path.write_text(text.replace(old, new, 1))

    def run_script(self, script, *arguments):
        return subprocess.run([TREE / "scripts" / script, *arguments], capture_output=True,
                              text=True, check=False)

    def assert_refused(self, result, message):
        self.assertNotEqual(result.returncode, 0, result.stdout)
        self.assertIn(message, result.stderr)


class LogMessages(TreeCopy):
    COPIED = ("src/onu_ability_common", "docs/log_messages.yaml", "docs/log-messages.md")

    def check(self):
        return self.run_script("log_messages.py", "--check", "--root", self.root)

    def test_takes_the_tree_as_it_is(self):
        result = self.check()
        self.assertEqual(result.returncode, 0, result.stderr)

    def test_refuses_a_new_message(self):
        self.change(ATTRIBUTES, 'ONU_ABILITY_LOG(10, "function start!");',
                    'ONU_ABILITY_LOG(4, "never seen before:%d", 1);')
        self.assert_refused(self.check(), "no meaning for level 4: never seen before:%d")

    def test_refuses_a_changed_text(self):
        self.change(ATTRIBUTES, "ability_attr_id is valid!", "ability_attr_id is fine!")
        result = self.check()
        self.assert_refused(result, "no meaning for level 1: ability_attr_id is fine!")
        self.assert_refused(result, "no source says it: level 1: ability_attr_id is valid!")

    def test_refuses_a_changed_level(self):
        self.change(ATTRIBUTES, 'ONU_ABILITY_LOG(1, "ability_attr_id is valid!',
                    'ONU_ABILITY_LOG(9, "ability_attr_id is valid!')
        self.assert_refused(self.check(), "no meaning for level 9: ability_attr_id is valid!")

    def test_refuses_a_changed_text_that_a_helper_returns(self):
        self.change(SERIALISATION, '"pack _id failed', '"pack _number failed')
        self.assert_refused(self.check(), "no meaning for level 13: pack _number failed")

    def test_refuses_a_message_that_moved_to_another_operation(self):
        self.change(ATTRIBUTES, "OnuAbilityAttrInfo::IsValid(", "OnuAbilityAttrInfo::IsFree(")
        self.assert_refused(self.check(), "is not what scripts/log_messages.py writes")

    def test_refuses_a_format_that_is_no_literal(self):
        self.change(ATTRIBUTES, 'ONU_ABILITY_LOG(10, "function start!");',
                    "ONU_ABILITY_LOG(10, text);")
        self.assert_refused(self.check(), "the format is not a literal")

    def test_refuses_a_line_past_the_macro(self):
        self.change(ATTRIBUTES, 'ONU_ABILITY_LOG(10, "function start!");',
                    'ulogPrintf(19, 10, "function start!");')
        self.assert_refused(self.check(), "logs past ONU_ABILITY_LOG")

    def test_refuses_a_new_text_of_a_command(self):
        self.change("src/onu_ability_common/onu_ability_common_service_cli/table_commands.cpp",
                    "Add ability value ok!", "Added")
        self.assert_refused(self.check(), "no meaning for Added")

    def test_refuses_a_refusal_that_does_not_say_what_to_do(self):
        self.change("docs/log_messages.yaml", "  do: Register the attribute first", "  dont: Register")
        self.assert_refused(self.check(), "says not what it means or what to do")

    def test_refuses_an_edited_page(self):
        self.change("docs/log-messages.md", "Nothing, this is the good case.", "Nothing.")
        self.assert_refused(self.check(), "docs/log-messages.md is not what")

    def test_refuses_a_logged_line_that_is_on_no_page(self):
        log = self.root / "log"
        log.write_text("2026-11-22 11:00:00.000 level 10 module 19 function start! func:Add,line:7\n"
                       "2026-11-22 11:00:00.000 level 4 module 19 function start! func:Add,line:7\n")
        self.assert_refused(self.run_script("log_messages.py", "--lines", log, "--root", self.root),
                            "no message of the sources is like this: 2026-11-22 11:00:00.000 level 4")

    def test_refuses_an_empty_log(self):
        (self.root / "log").write_text("")
        result = self.run_script("log_messages.py", "--lines", self.root / "log")
        self.assertNotEqual(result.returncode, 0)


class AbilityCodes(TreeCopy):
    COPIED = ("src/onu_ability_common", "docs/ability_codes.yaml", "docs/ability-codes.md",
              "data/catalogue.yaml")

    def check(self):
        return self.run_script("ability_codes.py", "--check", "--root", self.root)

    def test_takes_the_tree_as_it_is(self):
        result = self.check()
        self.assertEqual(result.returncode, 0, result.stderr)

    def test_refuses_a_new_code(self):
        self.change(VALUES, "constexpr unsigned short ONU_ABILITY_CODE_ALL_LAN",
                    "constexpr unsigned short ONU_ABILITY_CODE_NEW = 7;\n"
                    "constexpr unsigned short ONU_ABILITY_CODE_ALL_LAN")
        self.assert_refused(self.check(), 'ONU_ABILITY_CODE_NEW has no "means"')

    def test_refuses_a_changed_number(self):
        self.change(VALUES, "ONU_ABILITY_CODE_TYPE_NAME = 1083", "ONU_ABILITY_CODE_TYPE_NAME = 1084")
        self.assert_refused(self.check(), "docs/ability-codes.md is not what")

    def test_refuses_a_new_attribute(self):
        self.change(VALUES, "ONU_ABILITY_ATTR_LAMP = 3,", "ONU_ABILITY_ATTR_NEW = 2,\n  "
                    "ONU_ABILITY_ATTR_LAMP = 3,")
        self.assert_refused(self.check(), 'ONU_ABILITY_ATTR_NEW has no "means"')

    def test_refuses_a_meaning_of_a_code_that_is_gone(self):
        self.change(VALUES, "ONU_ABILITY_CODE_PROFILE_NAME", "ONU_ABILITY_CODE_TITLE")
        self.assert_refused(self.check(), "knows ONU_ABILITY_CODE_PROFILE_NAME")

    def test_refuses_a_kind_that_the_catalogue_contradicts(self):
        self.change("docs/ability_codes.yaml", "kind: string", "kind: number")
        self.assert_refused(self.check(), "is a number here, a string in data/catalogue.yaml")

    def test_refuses_a_code_that_another_source_names(self):
        self.change(ATTRIBUTES, "function start!", "function start!\" /* ONU_ABILITY_CODE_ONU_CAPA */ \"")
        self.assert_refused(self.check(), "docs/ability-codes.md is not what")


class ManOptions(TreeCopy):
    PAGE = "docs/man/olt_host.1"
    COPIED = (PAGE,)

    def check(self):
        return self.run_script("man_options.py", HOST, self.root / self.PAGE)

    def test_takes_the_page_as_it_is(self):
        result = self.check()
        self.assertEqual(result.returncode, 0, result.stderr)

    def test_refuses_a_job_without_one_of_its_options(self):
        self.change(self.PAGE, ".Op Fl -shard Ar I/N\n", "")
        self.assert_refused(self.check(), "confirm: --shard is in --help, not in the page")

    def test_refuses_an_option_that_a_job_does_not_have(self):
        self.change(self.PAGE, ".Cm attach\n", ".Cm attach\n.Op Fl -json\n")
        self.assert_refused(self.check(), "attach: --json is in the page, not in --help")

    def test_refuses_a_value_that_an_option_does_not_take(self):
        self.change(self.PAGE, ".Op Fl -keep-going\n", ".Op Fl -keep-going Ar N\n")
        self.assert_refused(self.check(), "confirm: --keep-going takes a value in one of")

    def test_refuses_an_option_that_is_not_described(self):
        self.change(self.PAGE, ".It Fl -metrics Ar PATH\n", ".It Fl -metric Ar PATH\n")
        result = self.check()
        self.assert_refused(result, "OPTIONS: --metrics is in --help, not in the page")
        self.assert_refused(result, "OPTIONS: --metric is in the page, not in --help")

    def test_refuses_arguments_in_another_order(self):
        self.change(self.PAGE, ".Ar CATALOGUE REPORTS FILE\n", ".Ar CATALOGUE FILE REPORTS\n")
        self.assert_refused(self.check(), "capture: the page has the arguments")

    def test_refuses_a_page_without_a_job(self):
        self.change(self.PAGE, ".Nm\n.Cm merge\n.Op Fl -json\n.Ar SUMMARY ...\n", "")
        self.assert_refused(self.check(), "jobs: merge is in --help, not in the page")


class ManCommands(TreeCopy):
    PAGE = "docs/man/olt_host-commands.7"
    COPIED = (PAGE,)

    def check(self):
        return self.run_script("man_commands.py", HOST, self.root / self.PAGE)

    def test_takes_the_page_as_it_is(self):
        result = self.check()
        self.assertEqual(result.returncode, 0, result.stderr)

    def test_refuses_a_page_without_a_command(self):
        self.change(self.PAGE, ".It Ic test ability\n", ".It Ic who {[json]}*1\n")
        result = self.check()
        self.assert_refused(result, "test ability is missing")
        self.assert_refused(result, "who {[json]}*1 is told twice")

    def test_refuses_another_range(self):
        self.change(self.PAGE, "terminal length <0-512>", "terminal length <1-512>")
        self.assert_refused(self.check(), "terminal length <1-512> is no command")

    def test_refuses_a_trial_that_has_words_of_its_own(self):
        self.change(self.PAGE, ".It Ic try drop\n", ".It Ic try test ability\n")
        result = self.check()
        self.assert_refused(result, "try drop is missing")
        self.assert_refused(result, "try test ability is no command")


if __name__ == "__main__":
    if HOST is None:
        sys.exit(__doc__)
    unittest.main(argv=[sys.argv[0]])
