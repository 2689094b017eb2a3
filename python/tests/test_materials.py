"""Materials by name: what the package adds over MATERIAL_DATA and
MATERIAL_NAMES (the search places it passes, the Material it builds, the
errors it raises); the file format itself is tested in C++."""

import pytest

import corvane

TAPE = """MATERIAL {name}
  CPT 0.2
  E1 140000
  E2 9000
  G12 4600
  V12 0.3
  TENSION 2000
  COMPRESSION 1400
  F2T 50
  F2C 200
  F12 80
END
"""


@pytest.fixture(autouse=True)
def machine_files_out(monkeypatch, tmp_path):
    """Only the places a test names and the installed materials."""
    monkeypatch.setenv("BASES_DATOS", "")
    monkeypatch.setenv("PATH", str(tmp_path / "nothing"))


def test_installed_material_is_a_ply_that_strength_takes():
    m = corvane.Material.load(" t300/5208 ")
    assert isinstance(m, corvane.Ply)
    assert (m.name, m.fabric, m.line) == ("T300/5208", False, 12)
    assert m.file.endswith("textbook_tapes.mat")
    assert (m.t, m.E1, m.F2c, m.F12) == (0.125, 181000.0, 246.0, 68.0)
    typed = corvane.Ply(
        0.125, 181000.0, 10300.0, 7170.0, 0.28, 0.02e-6, 22.5e-6,
        1500.0, 1500.0, 40.0, 246.0, 68.0, m.uetall, m.uecall,
    )
    loads = [[-500, 0, 0, 0, 0, 0, 0]]
    assert corvane.laminate_strength(m, "(0/45/-45/90)S", loads, "PUCK") == \
        corvane.laminate_strength(typed, "(0/45/-45/90)S", loads, "PUCK")


def test_places_come_first_then_bases_datos(monkeypatch, tmp_path):
    (tmp_path / "office").mkdir()
    (tmp_path / "office" / "a.mat").write_text(TAPE.format(name="T300/5208"))
    own = tmp_path / "own.mat"
    own.write_text(TAPE.format(name="Mine"))
    monkeypatch.setenv("BASES_DATOS", str(tmp_path / "office"))
    assert corvane.Material.load("T300/5208").t == pytest.approx(0.2)
    assert corvane.Material.load("mine", places=[own]).file == str(own)
    assert corvane.materials(own) == [
        "B(4)/5505", "Mine", "Scotchply 1002", "T300/5208",
    ]


@pytest.mark.parametrize(
    "text, name, code, words",
    [
        (TAPE.format(name="X").replace("E2 9000", "E2 9000 1"), "X", 1,
         ":4: E2 takes one number"),
        (TAPE.format(name="X"), "T300/5280", 2, "nearest: T300/5208"),
    ],
)
def test_refusals_name_the_line_or_the_nearest(tmp_path, text, name, code, words):
    path = tmp_path / "m.mat"
    path.write_text(text)
    with pytest.raises(corvane.CorvaneError) as error:
        corvane.Material.load(name, places=path)
    assert (error.value.entry_point, error.value.code) == ("MATERIAL_DATA", code)
    assert words in str(error.value)
