-- InizializzaListiniPrezzi
 declare @IdDisp decimal(18,0) 
 if not exists ( 
     select top 1 1 from GM57_KBLISTINI    
     where GM57_IDDISPOSITIVO_GM03 = 2 ) 
 begin 
     set @IdDisp = 2
     insert into GM57_KBLISTINI(GM57_IDDISPOSITIVO_GM03, GM57_CODPREZZO, GM57_INDTIPO) 
     values (@IdDisp, 1, 0), (@IdDisp, 2, 0), (@IdDisp, 3, 0), (@IdDisp, 4, 0), (@IdDisp, 5, 0),  
             (@IdDisp, 6, 0), (@IdDisp, 7, 0), (@IdDisp, 8, 0), (@IdDisp, 9, 0), (@IdDisp, 10, 0)  
 end 
GO

-- CreaTabellaListini
 select  
         case GM57_INDTIPO 
             --tsNessuna 
             when 0 then 1 
             --tsListinoAnagArticolo 
             when 1 then  
                 case when isnull(GM57_NUMLIST_LI10,0)<>0 then 1 
                 else 2  
                 end 
             --tsListinoMacrocat 
             when 2 then  
                 case when isnull(GM57_CATEGORIA,'')<>'' then 1 
                 else 2  
                 end 
             --tsListinoMacroarea 
             when 3 then  
                 case when isnull(GM57_CATEGORIA,'')<>'' then 1 
                 else 2  
                 end 
             --tsListinoDeposito 
             when 4 then  
                 case when isnull(GM57_DEPGIACENZE_MG58,'')<>'' then 1 
                 else 2  
                 end 
             --tsListinoScaglQt 
             when 5 then  
                 case when isnull(GM57_QUANTITA,0)<>0 then 1 
                 else 2  
                 end 
 end as STATO, * 
 into ##tempListini
 from GM57_KBLISTINI 
 where GM57_IDDISPOSITIVO_GM03 = 2
GO

-- RigheListini
select * from ##tempListini order by GM57_CODPREZZO
GO

-- SalvaListini
      MERGE GM57_KBLISTINI AS target   
      USING (SELECT GM57_IDDISPOSITIVO_GM03, GM57_CODPREZZO, GM57_INDTIPO, GM57_NUMLIST_LI10, GM57_CATEGORIA,  
                    GM57_DEPGIACENZE_MG58, GM57_QUANTITA, GM57_FLGINCLUDISCONTI, GM57_FLGATTIVO, GM57_CLIFOR_CG44  
              FROM ##tempListini)   
              AS source (GM57_IDDISPOSITIVO_GM03, GM57_CODPREZZO, GM57_INDTIPO, GM57_NUMLIST_LI10, GM57_CATEGORIA,  
                         GM57_DEPGIACENZE_MG58, GM57_QUANTITA, GM57_FLGINCLUDISCONTI, GM57_FLGATTIVO, GM57_CLIFOR_CG44)   
      ON (target.GM57_IDDISPOSITIVO_GM03 = source.GM57_IDDISPOSITIVO_GM03  
          and target.GM57_CODPREZZO = source.GM57_CODPREZZO)   
      WHEN MATCHED THEN   
          UPDATE SET GM57_INDTIPO = source.GM57_INDTIPO  
              , GM57_NUMLIST_LI10 = source.GM57_NUMLIST_LI10  
              , GM57_CATEGORIA = source.GM57_CATEGORIA  
              , GM57_DEPGIACENZE_MG58 = source.GM57_DEPGIACENZE_MG58  
              , GM57_QUANTITA = source.GM57_QUANTITA  
              , GM57_FLGINCLUDISCONTI = source.GM57_FLGINCLUDISCONTI  
              , GM57_CLIFOR_CG44 = source.GM57_CLIFOR_CG44  
              , GM57_FLGATTIVO = source.GM57_FLGATTIVO; 
GO

-- DisattivaListiniIncompleti
 update GM57_KBLISTINI 
 set GM57_FLGATTIVO = 0 
 where GM57_IDDISPOSITIVO_GM03 = 2
 and GM57_FLGATTIVO = 1 
 and ((GM57_INDTIPO=1 and isnull(GM57_NUMLIST_LI10,0)=0)  
       or (GM57_INDTIPO in (2,3) and isnull(GM57_CATEGORIA,'')='') 
       or (GM57_INDTIPO=4 and isnull(GM57_DEPGIACENZE_MG58,'')='') 
       or (GM57_INDTIPO=5 and isnull(GM57_QUANTITA,0)=0)) 
       or (GM57_INDTIPO=6 and isnull(GM57_CLIFOR_CG44,0)=0) 
GO

-- AggiornaPrezzi
exec SPKB_AGGIORNAPREZZI_KELMORIA 1
GO

-- ElencoChiaviListino: price lists
 SELECT DISTINCT LI10_NUMLIST, MG44_DESCLIST, MG44_VALUTA_CG08 
 FROM LI10_LISTARTIC 
 INNER JOIN MG66_ANAGRART WITH (NOLOCK) 
 ON MG66_DITTA_CG18 = LI10_DITTA_CG18 
 AND MG66_CODART = LI10_CODART_MG66 
 LEFT JOIN MG87_ARTDESC 
 ON MG87_DITTA_CG18 = LI10_DITTA_CG18 
 AND MG87_CODART_MG66 = LI10_CODART_MG66 
 AND MG87_OPZIONE_MG5E = LI10_OPZIONE_MG5E 
 AND MG87_LINGUA_MG52 = '' 
 LEFT JOIN MG58_DEPOSITI 
 ON MG58_DITTA_CG18 = LI10_DITTA_CG18 
 AND MG58_CODDEP = LI10_DEPOS_MG58 
 INNER JOIN MG44_PARMAGLIST 
 ON MG44_DITTA_CG18 = LI10_DITTA_CG18 
 AND MG44_NUMLIST = LI10_NUMLIST 
 AND MG44_FLGVENACQ = LI10_FLGVENDACQ 
 LEFT JOIN CG08_TABVALUTE 
 ON CG08_CODICE = MG44_VALUTA_CG08 
 WHERE LI10_DITTA_CG18 = 1
 AND LI10_INDTIPOLIS = 1   
 AND LI10_FLGUSODECOR = 0 
 AND LI10_FLGVENDACQ = 0 
 ORDER BY LI10_NUMLIST 
GO

-- ElencoChiaviListino: macro-categories
 SELECT distinct LI13_MACROCAT_MG10, MG10_DESCRMACROCAT 
 FROM LI13_LISTARTCAT 
 CROSS APPLY dbo.FNMG10_MACROCAT (LI13_MACROCAT_MG10, LI13_DITTA_CG18, LI13_FLGVENDACQ ) MG10_MACROCAT   
 WHERE LI13_DITTA_CG18 = 1
 AND LI13_FLGUSODECOR =  0  
 AND LI13_FLGVENDACQ = 0  
 ORDER BY LI13_MACROCAT_MG10 
GO

-- ElencoChiaviListino: macro-areas
 SELECT DISTINCT LI12_MACROAREA_MG07, MG07_DESCRMACROAR    
 FROM LI12_LISTARTZONE 
 CROSS APPLY dbo.FNMG07_MACROAREE (LI12_MACROAREA_MG07,LI12_DITTA_CG18,LI12_FLGVENDACQ ) MG07_MACROAREE   
 WHERE LI12_DITTA_CG18 = 1
 AND LI12_FLGUSODECOR =  0  
 AND LI12_FLGVENDACQ = 0  
 ORDER BY LI12_MACROAREA_MG07 
GO

-- ElencoChiaviListino: deposits
 SELECT MG58_CODDEP, MG58_DESCRDEP, MG58_INDIDEP, MG58_CAPDEP, MG58_LOCDEP, MG58_PROVDEP, MG58_TELNUMDEP, MG58_FAXNUMDEP FROM MG58_DEPOSITI WHERE MG58_DITTA_CG18 = 1 ORDER BY MG58_CODDEP
GO

-- DescrizioneNumeroListino
 SELECT MG44_DESCLIST, MG44_VALUTA_CG08, MG44_FLGIVACOMPR FROM MG44_PARMAGLIST WHERE    MG44_DITTA_CG18 = 1 AND MG44_FLGVENACQ = 0 AND MG44_NUMLIST = 3
GO

-- DescrizioneMacrocategoria
SELECT MG10_DESCRMACROCAT FROM MG10_MACROCAT WHERE MG10_DITTA_CG18 = 1 AND MG10_TIPOCF = 0 AND MG10_MACROCAT = 'RIV'
GO

-- DescrizioneMacroarea
SELECT MG07_DESCRMACROAR FROM MG07_MACROAREE WHERE MG07_DITTA_CG18 = 1 AND MG07_TIPOCF = 0 AND MG07_MACROAREA = 'NOR'
GO

-- DescrizioneDeposito
SELECT MG58_DESCRDEP FROM MG58_DEPOSITI WHERE MG58_DITTA_CG18 = 1 AND MG58_CODDEP = '03'
GO
