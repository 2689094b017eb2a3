"""A study split over Dask workers (docs/scale.md): load cases in partitions of
a data frame, each evaluated by one strength call on a worker of a local
cluster, give bit for bit what one call over every case gives."""

import numpy as np
import pytest

import corvane

dd = pytest.importorskip("dask.dataframe", reason="Debian: python3-dask (scripts/setup)")
distributed = pytest.importorskip("distributed", reason="Debian: python3-distributed")
pd = pytest.importorskip("pandas", reason="Debian: python3-pandas")

TAPE = corvane.Ply(0.125, 181000, 10300, 7170, 0.28, 0, 2e-5, 1500, 1500, 40, 246, 68)


def failure(cases):  # of one partition of load cases, as a data frame
    result = corvane.laminate_strength(TAPE, "(0/45/-45/90)2S", cases, "PUCK")
    return pd.DataFrame(result._asdict(), index=cases.index)


@pytest.mark.filterwarnings("ignore::DeprecationWarning")  # tornado, under distributed
def test_partitions_on_workers_equal_one_call_bit_for_bit():
    cases = np.random.default_rng(4).uniform(-300.0, 300.0, (60_000, 7)).astype(np.float32)
    table = dd.from_pandas(pd.DataFrame(cases, columns=corvane.LOAD_NAMES), npartitions=6)
    meta = {"rf": "float32", "ply": "int32", "surface": "int32", "mode": "int32"}
    with distributed.LocalCluster(
        n_workers=2, threads_per_worker=1, processes=False, dashboard_address=None
    ) as cluster, distributed.Client(cluster) as client:
        spread = client.compute(table.map_partitions(failure, meta=meta)).result(timeout=120)
    whole = corvane.laminate_strength(TAPE, "(0/45/-45/90)2S", cases, "PUCK")
    assert spread["rf"].to_numpy().view(np.int32).tolist() == whole.rf.view(np.int32).tolist()
    assert all((spread[n].to_numpy() == getattr(whole, n)).all() for n in ("ply", "surface", "mode"))
