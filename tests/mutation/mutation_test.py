"""Tests of scripts/mutation on small sources."""
import pathlib
import subprocess
import tempfile
import unittest

import build
import equivalent
import points
import rewrite
import run
from source import number_mutants


def mutants_of(code, folder):
    path = pathlib.Path(folder, 'toy.cpp')
    path.write_text(code)
    mutants = points.find_mutants(str(path), 'toy.cpp', ['-std=c++20'])
    number_mutants(mutants)
    return mutants


class Points(unittest.TestCase):
    def changes(self, code):
        with tempfile.TemporaryDirectory() as folder:
            return [mutant.change for mutant in mutants_of(code, folder)]

    def test_a_comparison_gets_its_neighbours_and_is_not_negated(self):
        self.assertEqual(self.changes('int f(int a, int b) { if (a < b) return a; return b; }'),
                         ['a < b -> a <= b', 'a < b -> a >= b'])

    def test_operands_of_a_condition_are_negated_one_by_one(self):
        self.assertEqual(self.changes('bool f(bool a, bool b) { return a && !b; }'),
                         ['a && !b -> a || !b', 'a -> !(a)', '!b -> b'])

    def test_literals(self):
        self.assertEqual(self.changes('struct S { S(const char*); }; S f() { return "a"; } char g() { return \'b\'; }'
                                      'int h(bool) { return 7; } int i() { return h(true) + 0; }'),
                         ['"a" -> ""', "'b' -> 'b' + 1", '7 -> 8', 'h(true) + 0 -> h(true) - 0', 'true -> false', '0 -> 1'])

    def test_calls_are_left_out_and_swapped_but_assignments_are_not(self):
        self.assertEqual(self.changes('void g(); void h(); int f(int a) { g(); h(); a = 1; if (a) g(); return a; }'),
                         ['leave out g()', 'swap g() and h()', 'leave out h()', '1 -> 2', 'a -> !(a)', 'leave out g() #2'])

    def test_calls_that_hardly_depend_on_each_other_are_not_swapped(self):
        swapped = [change for change in self.changes(
            'struct S { void a(); void b(); void setC(); void setD(); };'
            'void f(S x, S y) { x.a(); y.a(); y.b(); x.b(); x.setC(); x.setD(); }') if change.startswith('swap')]
        self.assertEqual(swapped, ['swap y.a() and y.b()', 'swap x.b() and x.setC()'])

    def test_a_variable_that_is_a_condition_is_not_negated(self):
        self.assertEqual(self.changes('bool g(); void f() { for (; bool a = g();) {} if (bool b = g()) {}'
                                      'while (bool c = g()) {} }'), [])

    def test_a_comparison_that_the_compiler_rewrites_keeps_its_operator(self):
        self.assertEqual(self.changes('struct S { bool operator==(const S&) const; };'
                                      'bool f(S a, S b) { return a != b; }'), ['a != b -> a == b'])

    def test_what_the_compiler_evaluates_stays(self):
        self.assertEqual(self.changes('template <int N> int g(); enum E { A = 1 }; constexpr int k = 2;'
                                      'constexpr int c() { return 3; } static_assert(k == 2); const int bound = 4;'
                                      'int f(int a) { int x[5]; switch (a) { case 6: return x[a]; } return g<7>(); }'), [])

    def test_macros_are_not_cut(self):
        self.assertEqual(self.changes('#define TWICE(x) ((x) + (x))\nint f(int a) { return TWICE(a) * 3; }'),
                         ['TWICE(a) * 3 -> TWICE(a) / 3', '3 -> 4'])

    def test_equal_changes_of_a_line_are_numbered(self):
        self.assertEqual(self.changes('int f(int a) { return a * 2 * 2; }'),
                         ['a * 2 * 2 -> a * 2 / 2', 'a * 2 -> a / 2', '2 -> 3', '2 -> 3 #2'])


class Rewriting(unittest.TestCase):
    def test_the_blamed_change_is_the_innermost_at_the_place_of_a_message(self):
        with tempfile.TemporaryDirectory() as folder:
            mutants = mutants_of('int f(int a) {\n    return a * 2;\n}\n', folder)
        text, spans = rewrite.rewrite(b'int f(int a) {\n    return a * 2;\n}\n', mutants)
        line = text.split(b'\n')[1]
        self.assertEqual(line, b'    return (::mutation::Mutated(1) ? (a / 2) : '
                               b'(a * (::mutation::Mutated(2) ? (3) : (2))));')
        self.assertEqual(rewrite.blamed(spans, text, [(2, line.index(b'(3)') + 1)]), {2})
        self.assertEqual(rewrite.blamed(spans, text, [(2, line.index(b'a / 2') + 1)]), {1})
        self.assertEqual(rewrite.blamed(spans, text, [(1, 1)]), set())
        self.assertEqual(rewrite.blamed(spans, text, [(2, 1)]), {1, 2})


TOY = '''#include <sched.h>
#include <array>
#include <vector>
std::vector<int> calls;
void First() { calls.push_back(1); }
void Second() { calls.push_back(2); }
int Larger(int a, int b) { return a >= b ? a : b; }
void Both() {
    First();
    Second();
}
void Wait(bool done) { while (!done) sched_yield(); }
int Unreached() { return 5; }
int Size() { return static_cast<int>(std::array<char, 6>{}.size()); }
'''

TESTS = '''#include <gtest/gtest.h>
#include <vector>
extern std::vector<int> calls;
int Larger(int a, int b);
void Both();
void Wait(bool done);
int Size();
TEST(Toy, Larger) { EXPECT_EQ(Larger(1, 2), 2); EXPECT_EQ(Larger(2, 2), 2); EXPECT_EQ(Larger(3, 2), 3); }
TEST(Toy, Order) { Both(); EXPECT_EQ(calls, (std::vector<int>{1, 2})); }
TEST(Toy, Wait) { Wait(true); }
TEST(Toy, Size) { EXPECT_EQ(Size(), 6); }
'''


class Whole(unittest.TestCase):
    """Builds a program and runs its tests for each mutant."""

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        root = pathlib.Path(folder.name)
        mutants = mutants_of(TOY, root)
        (root / 'test.cpp').write_text(TESTS)
        compiled = ['c++', '-std=c++20', '-O0', '-c', str(root / 'test.cpp'), '-o', str(root / 'test.o')]
        subprocess.run(compiled, check=True)
        unit = build.Unit(str(root / 'toy.cpp'), 'toy.cpp',
                          ['c++', '-std=c++20', '-o', 'toy.o', '-c', str(root / 'toy.cpp')], str(root))
        link = ': && c++ test.o -o toy -lgtest_main -lgtest && :', str(root)
        build.link_program(build.compile_units([unit], mutants, root / 'work', 1), link, root / 'work/toy')
        program = run.Program(root / 'work/toy', root, 2, 2)
        cls.reaching = program.reached(mutants[-1].number)
        program.judge_all([mutant for mutant in mutants if not mutant.state], cls.reaching, lambda left: None)
        cls.states = {mutant.change: (mutant.state, mutant.detail) for mutant in mutants}
        cls.numbers = {mutant.change: mutant.number for mutant in mutants}

    def test_a_change_that_a_test_notices_is_caught_by_it(self):
        self.assertEqual(self.states['a >= b -> a < b'], ('caught', 'Toy.Larger'))
        self.assertEqual(self.states['swap First() and Second()'], ('caught', 'Toy.Order'))
        self.assertEqual(self.states['leave out Second()'], ('caught', 'Toy.Order'))

    def test_a_change_without_an_effect_survives(self):
        self.assertEqual(self.states['a >= b -> a > b'], ('survived', '1 tests'))

    def test_a_change_that_no_test_reaches_is_not_run(self):
        self.assertEqual(self.states['5 -> 6'], ('not reached', ''))
        self.assertEqual(self.reaching[self.numbers['leave out First()']], ['Toy.Order'])

    def test_a_change_that_runs_endlessly_is_caught(self):
        self.assertEqual(self.states['!done -> done'], ('caught', 'timeout in Toy.Wait'))

    def test_a_change_that_does_not_compile_is_dropped(self):
        self.assertEqual(self.states['6 -> 7'], ('uncompilable', ''))


class EquivalentList(unittest.TestCase):
    def test_an_entry_is_read_as_it_is_written(self):
        with tempfile.TemporaryDirectory() as folder:
            mutant = mutants_of('bool f(int a) { return a > 0; }', folder)[0]
            path = pathlib.Path(folder, 'list.txt')
            path.write_text('# Comment.\n\n' + equivalent.entry(mutant, 'No caller passes 0.'))
            entries = equivalent.read(path)
        self.assertEqual(entries, {equivalent.key(mutant): 'No caller passes 0.'})
        self.assertEqual(equivalent.outdated(entries, [mutant], {'toy.cpp'}), [])
        self.assertEqual(equivalent.outdated(entries, [], {'toy.cpp'}), [equivalent.key(mutant)])

    def test_an_entry_without_a_reason_is_refused(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder, 'list.txt')
            path.write_text('file: toy.cpp\ncode: x\nchange: a -> b\nreason:\n')
            with self.assertRaises(SystemExit):
                equivalent.read(path)

    def test_the_project_list_can_be_read(self):
        equivalent.read()


if __name__ == '__main__':
    unittest.main()
