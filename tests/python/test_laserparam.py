"""laserparam as a process engineer's script uses it: documents, records,
wobble, and bad input that must raise, never crash."""

import math

import pytest

import laserparam as lp


@pytest.fixture(autouse=True)
def library(tmp_path):
    lp.load(tmp_path / "defaults.cfg")
    yield
    lp.unload()


def sixteen_pens(tmp_path, encoding="lzma"):
    pens, skipped = lp.load_record("PenArray", {"params": [{}] * 16})
    assert {s.reason for s in skipped} == {"key missing"}  # every key took its default
    doc = lp.Document()
    doc["pens"] = pens
    path = tmp_path / "job.cfg"
    doc.write(path, encoding=encoding, aes="cbc", key=1)
    return path


@pytest.mark.parametrize("encoding", ["base64", "xor", "lzma", "aes"])
def test_change_one_pen_and_read_it_back(tmp_path, encoding):
    path = sixteen_pens(tmp_path, encoding)
    doc = lp.Document.read(path)
    before = doc["pens"]
    doc["pens.params[3].laserPower"] = 75
    doc["pens.params[3].penName"] = "客户作业"
    doc.write(path)  # in its own encoding, AES mode and key
    back = lp.Document.read(path)
    assert back.option == doc.option == lp.option_word(encoding, "cbc", 1)
    after = back["pens"]
    assert after["params"][3]["laserPower"] == 75
    assert after["params"][3]["penName"] == "客户作业"
    after["params"][3] = before["params"][3]
    assert after == before  # nothing else changed
    assert "pens" in back.members()
    assert "pens.params[99]" not in back


def test_records_report_what_they_skip():
    pen, skipped = lp.load_record("PenParam", {"laserPower": "75", "runSpeed": math.inf})
    assert pen["laserPower"] == 60 and pen["runSpeed"] == "Infinity"
    wrong = [(s.path, s.found, s.kept) for s in skipped if s.reason != "key missing"]
    assert wrong == [("laserPower", "75", 60)]
    assert ("penName", None, "Default") in [(s.path, s.found, s.kept) for s in skipped]
    assert "LmcParam" in lp.record_types()
    schema = lp.record_schema("PenParam")
    assert schema["$defs"]["PenParam"]["properties"]["laserPower"]["default"] == 60


def test_wobble_as_points_and_as_array():
    wobble = {"bEnable": True, "wobbleType": 0, "wobbleDiaX": 1.0, "wobbleDiaY": 1.0,
              "wobbleSpace": 0.5}
    points = lp.wobble(wobble, [(0, 0), (10, 0)], as_numpy=False)
    assert len(points) > 900 and all(abs(y) <= 0.5 + 1e-9 for _, y in points)
    np = pytest.importorskip("numpy")
    array = lp.wobble(wobble, np.array([[0.0, 0.0], [10.0, 0.0]]))
    assert array.shape == (len(points), 2)
    assert np.array_equal(array, np.array(points))
    assert lp.wobble({"bEnable": False}, [(0, 0), (1, 0)], as_numpy=False) == []


def test_bad_input_raises_with_a_readable_message(tmp_path):
    with pytest.raises(lp.ParamError, match="not found") as info:
        lp.Document.read(tmp_path / "missing.cfg")
    assert info.value.code == 0x230004
    (tmp_path / "junk.cfg").write_bytes(b"\0" * 8 + b"not base64!")
    with pytest.raises(lp.ParamError, match="base64"):
        lp.Document.read(tmp_path / "junk.cfg")
    doc = lp.Document()
    with pytest.raises(KeyError):
        doc["nothing.here"]
    with pytest.raises(lp.ParamError):
        doc["a.b"] = 1
    with pytest.raises(lp.ParamError):
        lp.load_record("NoSuchRecord", {})
    with pytest.raises(ValueError):
        lp.wobble([1, 0, 1, 1], [(0, 0)])
    with pytest.raises(ValueError):
        lp.wobble([1, 0, 1, 1, 0.5], [(0, math.nan)])
    with pytest.raises(lp.ParamError):
        lp.wobble([1, 0, 1, 1, 0.001], [(0, 0), (1e12, 0)])
    with pytest.raises(TypeError):
        lp.Document.read(42)
    doc.close()
    with pytest.raises(ValueError):
        doc.members()
